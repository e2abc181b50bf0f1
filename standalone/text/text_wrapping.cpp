#include "standalone/text/text_wrapping.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

#include "standalone/text/printable_ascii.h"

namespace vond::standalone {
namespace {

constexpr std::size_t MIN_ROOM = 16;

struct CodePoint {
  utf8proc_int32_t value;
  std::size_t size;
  std::size_t columns;
  bool valid;
};

struct Cluster {
  std::size_t size;
  std::size_t columns;
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

/// The line of output that is being filled.
struct Row {
  std::size_t room = 0;  // beside the lead
  std::size_t column = 0;
  bool has_word = false;
};

bool is_ascii(char character) { return static_cast<unsigned char>(character) < 0x80; }

std::size_t ascii_columns(char character) { return character >= ' ' && character != '\x7F'; }

CodePoint code_point_at(std::string_view text) {
  utf8proc_int32_t value = 0;
  const auto size = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                     static_cast<utf8proc_ssize_t>(text.size()), &value);
  if (size <= 0) {
    return {0, 1, 1, false};
  }
  const int columns = std::max(utf8proc_charwidth(value), 0);
  return {value, static_cast<std::size_t>(size), static_cast<std::size_t>(columns), true};
}

Cluster long_cluster_at(std::string_view text) {
  CodePoint last = code_point_at(text);
  Cluster cluster{last.size, last.columns};
  utf8proc_int32_t state = 0;
  while (last.valid && cluster.size < text.size()) {
    const CodePoint next = code_point_at(text.substr(cluster.size));
    if (!next.valid || utf8proc_grapheme_break_stateful(last.value, next.value, &state)) {
      break;
    }
    cluster.size += next.size;
    cluster.columns += next.columns;
    last = next;
  }
  return cluster;
}

// Most lines are printable ASCII, and need not be asked what each character is. What walks along a
// line therefore takes how as an argument: as PlainText or as AnyText. Both expect a text that is
// not empty and begins at a cluster's start.

struct PlainText {
  static constexpr bool IS_PLAIN = true;
  static Cluster cluster_at(std::string_view /*text*/) { return {1, 1}; }
};

struct AnyText {
  static constexpr bool IS_PLAIN = false;
  static Cluster cluster_at(std::string_view text) {
    // Between two ASCII characters of one line there is always a boundary.
    if (is_ascii(text[0]) && (text.size() == 1 || is_ascii(text[1]))) {
      return {1, ascii_columns(text[0])};
    }
    return long_cluster_at(text);
  }
};

/// Whether the text begins with a blank that no other character clings to.
template <typename Text>
bool starts_with_blank(std::string_view text) {
  return !text.empty() && text[0] == ' ' && Text::cluster_at(text).size == 1;
}

template <typename Text>
std::size_t count_blanks(std::string_view text) {
  std::size_t count = 0;
  while (starts_with_blank<Text>(text.substr(count))) {
    ++count;
  }
  return count;
}

template <typename Text>
Word first_word(std::string_view text) {
  std::size_t size = 0;
  std::size_t columns = 0;
  while (size < text.size()) {
    const Cluster cluster = Text::cluster_at(text.substr(size));
    if (cluster.size == 1 && text[size] == ' ') {
      break;
    }
    size += cluster.size;
    columns += cluster.columns;
  }
  return {text.substr(0, size), columns};
}

/// Stops counting above the limit, so that a line that is far too long costs no more than its row.
std::size_t count_columns(std::string_view text,
                          std::size_t limit = std::numeric_limits<std::size_t>::max()) {
  std::size_t columns = 0;
  for (std::size_t at = 0; at < text.size() && columns <= limit;) {
    if (is_ascii(text[at])) {
      columns += ascii_columns(text[at++]);
    } else {
      const CodePoint code_point = code_point_at(text.substr(at));
      columns += code_point.columns;
      at += code_point.size;
    }
  }
  return columns;
}

/// The longest start of blanks and of the tree's drawing characters that ends in a blank.
std::size_t lead_size(std::string_view text) {
  const std::size_t end = std::min(text.find_first_not_of(" |`-"), text.size());
  return text.substr(0, end).rfind(' ') + 1;
}

/// Where the value behind a line's label begins; nothing when the line has no label.
std::optional<std::size_t> find_value(std::string_view line, char label_end) {
  const char pattern[] = {label_end, ' '};
  const std::size_t label = line.find(std::string_view(pattern, 2));
  if (label == std::string_view::npos) {
    return std::nullopt;
  }
  return std::min(line.find_first_not_of(' ', label + 1), line.size());
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
    const Cluster cluster = Text::cluster_at(word.substr(reached.size));
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

class TextWrapper {
 public:
  explicit TextWrapper(const WrapOptions& options)
      : options_(options),
        indent_columns_(count_columns(options.indent)),
        width_(static_cast<std::size_t>(std::max(options.width, 0))),
        short_line_size_(width_ == 0 ? std::numeric_limits<std::size_t>::max()
                                     : std::max(width_, MIN_ROOM)) {
    continue_at(indent_columns_);
  }

  std::string wrap(std::string_view text) {
    output_.reserve(text.size());
    for (bool is_first = true; !text.empty(); is_first = false) {
      std::size_t size = std::min(text.find('\n'), text.size());
      wrap_line(text.substr(0, size), is_first);
      if (size < text.size()) {
        output_ += '\n';
        ++size;
      }
      text.remove_prefix(size);
    }
    return std::move(output_);
  }

 private:
  void wrap_line(std::string_view line, bool is_first) {
    const bool has_indent = line.starts_with(options_.indent);
    const bool begins_with_indent = has_indent || (options_.indents_lines && !is_first);
    if (has_indent) {
      line.remove_prefix(options_.indent.size());
    }
    if (begins_with_indent) {
      output_ += options_.indent;
    }
    // Most lines are short, whatever is in them: no character has more columns than bytes.
    if (line.size() + (begins_with_indent ? options_.indent.size() : 0) <= short_line_size_) {
      output_ += line;
    } else {
      wrap_behind_indent(line, begins_with_indent ? indent_columns_ : 0);
    }
  }

  /// Wraps the rest of a line whose indent, if it has one, is written and ends at `column`.
  void wrap_behind_indent(std::string_view line, std::size_t column) {
    const std::size_t lead = lead_size(line);
    const std::string_view words = line.substr(lead);
    output_ += line.substr(0, lead);
    row_ = {room_beside(column + lead)};
    const bool plain = is_printable_ascii(words);
    if (words.size() <= row_.room || (!plain && count_columns(words, row_.room) <= row_.room)) {
      output_ += words;
      return;
    }
    if (options_.label_end) {
      continue_at(continuation_column(line, column));
    }
    if (plain) {
      fill<PlainText>(words);
    } else {
      fill<AnyText>(words);
    }
  }

  std::size_t room_beside(std::size_t lead_columns) const {
    const std::size_t taken = options_.counts_lead ? std::min(lead_columns, width_) : 0;
    return std::max(width_ - taken, MIN_ROOM);
  }

  /// The column of the line's value. It is the indent's if there is none, and also if the value is
  /// not in sight of the label: nothing would stand above what is set under it, and a stray label
  /// end far out in a line must not multiply the line's size.
  std::size_t continuation_column(std::string_view line, std::size_t column) const {
    const auto value = find_value(line, *options_.label_end);
    const std::size_t in_sight = std::max(width_, indent_columns_ + MIN_ROOM);
    const std::size_t value_column =
        value ? column + count_columns(line.substr(0, *value), in_sight) : 0;
    return value_column < in_sight ? std::max(value_column, indent_columns_) : indent_columns_;
  }

  /// Lets rows made by a break begin with the indent, and with blanks up to the column.
  void continue_at(std::size_t column) {
    continuation_.assign(options_.indent).append(column - indent_columns_, ' ');
    continuation_room_ = room_beside(column);
  }

  template <typename Text>
  void fill(std::string_view words) {
    while (!words.empty()) {
      if constexpr (Text::IS_PLAIN) {
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
      append({words.substr(0, size), size}, 0);
    }
    return size;
  }

  template <typename Text>
  void place(const Word& word, std::size_t blanks) {
    const bool fits_into_row = row_.column + blanks + word.columns <= row_.room;
    const bool fits_nowhere = !row_.has_word || word.columns > continuation_room_;
    if (!fits_into_row && fits_nowhere && options_.splits_words) {
      place_in_pieces<Text>(word.text, blanks);
    } else if (fits_into_row || !row_.has_word) {
      append(word, blanks);
    } else {
      start_row();
      append(word, 0);
    }
  }

  template <typename Text>
  void place_in_pieces(std::string_view word, std::size_t blanks) {
    for (std::size_t depth = 0; !word.empty(); blanks = 0) {
      const Piece piece = next_piece<Text>(word, blanks, depth);
      if (piece.size > 0) {
        append({word.substr(0, piece.size), piece.columns}, blanks);
        word.remove_prefix(piece.size);
        depth = piece.depth;
      }
      if (!word.empty()) {
        start_row();
      }
    }
  }

  /// Returns what of the word goes into the row. It is empty only if the row has a word already.
  template <typename Text>
  Piece next_piece(std::string_view word, std::size_t blanks, std::size_t depth) const {
    const std::size_t room = row_.room - std::min(row_.room, row_.column + blanks);
    const bool cut_anywhere = !row_.has_word || room >= continuation_room_;
    const Piece piece = first_piece<Text>(word, room, depth, cut_anywhere);
    if (piece.size > 0 || row_.has_word) {
      return piece;
    }
    // A single cluster can be wider than any room: it stands out.
    const Cluster cluster = Text::cluster_at(word);
    return {cluster.size, cluster.columns, depth};
  }

  void start_row() {
    output_ += '\n';
    output_ += continuation_;
    row_ = {continuation_room_};
  }

  void append(const Word& word, std::size_t blanks) {
    output_.append(blanks, ' ');
    output_ += word.text;
    row_.column += blanks + word.columns;
    row_.has_word = true;
  }

  const WrapOptions& options_;
  const std::size_t indent_columns_;
  const std::size_t width_;            // 0: nothing is broken
  const std::size_t short_line_size_;  // a line with no more bytes fits
  std::string continuation_;
  std::size_t continuation_room_ = 0;
  Row row_;
  std::string output_;
};

}  // namespace

std::string wrap_text(std::string_view text, const WrapOptions& options) {
  if (!options.keeps_final_line_ends) {
    text = text.substr(0, text.find_last_not_of('\n') + 1);
  }
  return TextWrapper(options).wrap(text);
}

}  // namespace vond::standalone
