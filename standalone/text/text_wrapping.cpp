#include "standalone/text/text_wrapping.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

#include "standalone/text/columns.h"
#include "standalone/text/printable_ascii.h"
#include "standalone/text/row_filling.h"

namespace vond::standalone {
namespace {

constexpr std::size_t LEAST_ROOM = 16;

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

/// Lays out a text line by line: finds the lead and the label of each line, and where its rows
/// begin.
class TextWrapper {
 public:
  explicit TextWrapper(const WrapOptions& options)
      : options_(options),
        indent_columns_(is_printable_ascii(options.indent) ? options.indent.size()
                                                           : count_columns(options.indent)),
        width_(static_cast<std::size_t>(std::max(options.width, 0))),
        short_line_size_(width_ == 0 ? std::numeric_limits<std::size_t>::max()
                                     : std::max(width_, LEAST_ROOM)) {
    layout_.splits_words = options.splits_words;
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
    const std::size_t room = room_beside(column + lead);
    const bool printable_ascii = is_printable_ascii(words);
    if (words.size() <= room || (!printable_ascii && count_columns(words, room) <= room)) {
      output_ += words;
      return;
    }
    continue_at(options_.label_end ? continuation_column(line, column) : indent_columns_);
    fill_rows(words, printable_ascii, room, layout_, output_);
  }

  std::size_t room_beside(std::size_t lead_columns) const {
    const std::size_t taken = options_.counts_lead ? std::min(lead_columns, width_) : 0;
    return std::max(width_ - taken, LEAST_ROOM);
  }

  /// The column of the line's value. It is the indent's if there is none, and also if the value is
  /// not in sight of the label: nothing would stand above what is set under it, and a stray label
  /// end far out in a line must not multiply the line's size.
  std::size_t continuation_column(std::string_view line, std::size_t column) const {
    const auto value = find_value(line, *options_.label_end);
    const std::size_t in_sight = std::max(width_, indent_columns_ + LEAST_ROOM);
    const std::size_t value_column =
        value ? column + count_columns(line.substr(0, *value), in_sight) : 0;
    return value_column < in_sight ? std::max(value_column, indent_columns_) : indent_columns_;
  }

  /// Lets rows made by a break begin with the indent, and with blanks up to the column.
  void continue_at(std::size_t column) {
    layout_.continuation.assign(options_.indent).append(column - indent_columns_, ' ');
    layout_.continuation_room = room_beside(column);
  }

  const WrapOptions& options_;
  const std::size_t indent_columns_;
  const std::size_t width_;            // 0: nothing is broken
  const std::size_t short_line_size_;  // a line with no more bytes fits
  RowLayout layout_;                   // of the line that is being wrapped
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
