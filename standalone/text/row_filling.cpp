#include "standalone/text/row_filling.h"

#include <algorithm>

#include "standalone/text/columns.h"

namespace vond::standalone {
namespace {

// Most lines are printable ASCII, and need not be asked what each character is. What walks along a
// line is therefore a template of the kind of text: PrintableAscii or AnyText. Both expect a text
// that is not empty and begins at a cluster's start.

struct PrintableAscii {
  static constexpr bool IS_PRINTABLE_ASCII = true;
  static Cluster first_cluster(std::string_view /*text*/) { return {1, 1}; }
};

struct AnyText {
  static constexpr bool IS_PRINTABLE_ASCII = false;
  static Cluster first_cluster(std::string_view text) { return standalone::first_cluster(text); }
};

struct Word {
  std::string_view text;
  std::size_t columns;
};

/// The start of a word, with the depth of square brackets at its end.
struct Piece {
  std::size_t size = 0;
  std::size_t columns = 0;
  std::size_t depth = 0;
};

/// The row that is being filled.
struct Row {
  std::size_t room = 0;
  std::size_t column = 0;
  bool has_word = false;
};

/// Whether the text begins with a blank that no other character clings to.
template <typename Text>
bool starts_with_blank(std::string_view text) {
  return !text.empty() && text[0] == ' ' && Text::first_cluster(text).size == 1;
}

template <typename Text>
std::size_t count_blanks(std::string_view text) {
  std::size_t count = 0;
  while (starts_with_blank<Text>(text.substr(count))) {
    ++count;
  }
  return count;
}

/// Returns the word that the text begins with; an empty one when it begins with a blank.
template <typename Text>
Word first_word(std::string_view text) {
  std::size_t size = 0;
  std::size_t columns = 0;
  while (size < text.size()) {
    const Cluster cluster = Text::first_cluster(text.substr(size));
    if (cluster.size == 1 && text[size] == ' ') {
      break;
    }
    size += cluster.size;
    columns += cluster.columns;
  }
  return {text.substr(0, size), columns};
}

std::size_t depth_behind(char character, std::size_t depth) {
  if (character == '[') {
    return depth + 1;
  }
  return character == ']' && depth > 0 ? depth - 1 : depth;
}

/// Returns the piece of a word that goes into the room: all of it, or up to the best separator, or
/// up to the end of the room if the word may be cut anywhere. It is empty when there is none. Node
/// lists thus break between terms rather than inside brackets, and paths at their slashes.
template <typename Text>
Piece first_piece(std::string_view word, std::size_t room, std::size_t depth, bool cut_anywhere) {
  Piece reached{0, 0, depth};
  Piece separated;
  Piece separated_outside_brackets;
  while (reached.size < word.size()) {
    const Cluster cluster = Text::first_cluster(word.substr(reached.size));
    if (reached.columns + cluster.columns > room) {
      break;
    }
    const char character = cluster.size == 1 ? word[reached.size] : '\0';
    reached.size += cluster.size;
    reached.columns += cluster.columns;
    reached.depth = depth_behind(character, reached.depth);
    if (character == ',' || character == '/') {
      separated = reached;
    }
    if (character == ',' && reached.depth == 0) {
      separated_outside_brackets = reached;
    }
  }
  if (reached.size == word.size()) {
    return reached;
  }
  if (separated_outside_brackets.size > 0) {
    return separated_outside_brackets;
  }
  return separated.size > 0 || !cut_anywhere ? separated : reached;
}

/// Fills rows. Columns and room are counted beside what the rows begin with.
class RowFiller {
 public:
  RowFiller(const RowLayout& layout, std::size_t first_room, std::string& output)
      : layout_(layout), output_(output), row_{first_room} {}

  template <typename Text>
  void fill(std::string_view words) {
    while (!words.empty()) {
      if constexpr (Text::IS_PRINTABLE_ASCII) {
        words.remove_prefix(append_fitting_words(words));
      }
      const std::size_t blanks = count_blanks<Text>(words);
      words.remove_prefix(blanks);
      const Word word = first_word<Text>(words);
      words.remove_prefix(word.text.size());
      if (!word.text.empty()) {
        place<Text>(word, blanks);
      }
    }
  }

 private:
  /// Appends as many words of printable ASCII as fit into the row and returns their size, with the
  /// blanks before them: where a byte is a column, the end of the row need only be looked up.
  std::size_t append_fitting_words(std::string_view words) {
    const std::size_t room = row_.room - std::min(row_.room, row_.column);
    const std::size_t end = words.size() <= room ? words.size() : words.rfind(' ', room);
    if (end == std::string_view::npos) {
      return 0;
    }
    const std::size_t size = words.substr(0, end).find_last_not_of(' ') + 1;
    if (size > 0) {
      append({words.substr(0, size), size});
    }
    return size;
  }

  template <typename Text>
  void place(const Word& word, std::size_t blanks) {
    const bool fits_into_row = row_.column + blanks + word.columns <= row_.room;
    const bool fits_nowhere = !row_.has_word || word.columns > layout_.continuation_room;
    if (!fits_into_row && fits_nowhere && layout_.splits_words) {
      place_in_pieces<Text>(word.text, blanks);
    } else {
      if (fits_into_row || !row_.has_word) {
        append_blanks(blanks);
      } else {
        break_row();
      }
      append(word);
    }
  }

  template <typename Text>
  void place_in_pieces(std::string_view word, std::size_t blanks) {
    for (std::size_t depth = 0; !word.empty(); blanks = 0) {
      const Piece piece = next_piece<Text>(word, blanks, depth);
      if (piece.size > 0) {
        append_blanks(blanks);
        append({word.substr(0, piece.size), piece.columns});
        word.remove_prefix(piece.size);
        depth = piece.depth;
      }
      if (!word.empty()) {
        break_row();
      }
    }
  }

  /// Returns what of the word goes into the row. It is empty only if the row has a word already.
  template <typename Text>
  Piece next_piece(std::string_view word, std::size_t blanks, std::size_t depth) const {
    const std::size_t room = row_.room - std::min(row_.room, row_.column + blanks);
    const bool cut_anywhere = !row_.has_word || room >= layout_.continuation_room;
    const Piece piece = first_piece<Text>(word, room, depth, cut_anywhere);
    if (piece.size > 0 || row_.has_word) {
      return piece;
    }
    // A single cluster can be wider than any room: it stands out.
    const Cluster cluster = Text::first_cluster(word);
    return {cluster.size, cluster.columns, depth};
  }

  void break_row() {
    output_ += '\n';
    output_ += layout_.continuation;
    row_ = {layout_.continuation_room};
  }

  void append_blanks(std::size_t count) {
    output_.append(count, ' ');
    row_.column += count;
  }

  void append(const Word& word) {
    output_ += word.text;
    row_.column += word.columns;
    row_.has_word = true;
  }

  const RowLayout& layout_;
  std::string& output_;
  Row row_;
};

}  // namespace

void fill_rows(std::string_view words, bool is_printable_ascii, std::size_t first_room,
               const RowLayout& layout, std::string& output) {
  RowFiller rows(layout, first_room, output);
  if (is_printable_ascii) {
    rows.fill<PrintableAscii>(words);
  } else {
    rows.fill<AnyText>(words);
  }
}

}  // namespace vond::standalone
