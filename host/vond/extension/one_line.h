#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "vond/extension/code_points.h"

namespace vond::extension {

namespace one_line_detail {

inline bool ends_line(char32_t value) {
  constexpr char32_t NEXT_LINE = 0x85;
  return (value >= U'\n' && value <= U'\r') || value == NEXT_LINE || value == U'\u2028' ||
         value == U'\u2029';
}

/// Whether a character steers a terminal or cannot be seen: controls, what turns the direction of
/// text, joiners, tags.
inline bool is_hidden(char32_t value) {
  const auto is_within = [value](char32_t first, char32_t last) {
    return value >= first && value <= last;
  };
  return value < U' ' || is_within(0x7F, 0x9F) || value == 0xAD || value == 0x61C ||
         is_within(0x200B, 0x200F) || is_within(0x202A, 0x202E) || is_within(0x2060, 0x206F) ||
         value == 0xFEFF || is_within(0xFFF9, 0xFFFB) || is_within(0xE0000, 0xE0FFF);
}

/// Collects the characters of one line.
class Line {
 public:
  explicit Line(std::size_t most_bytes) { text_.reserve(most_bytes); }

  void add(char32_t value, std::string_view bytes) {
    const bool is_end = ends_line(value);
    if (is_end || value == U' ' || value == U'\t') {
      ++blanks_;
      has_end_ = has_end_ || is_end;
      return;
    }
    add_blanks(text_.empty());
    text_ += is_hidden(value) ? REPLACEMENT_CHARACTER : bytes;
  }

  std::string take() {
    add_blanks(true);
    return std::move(text_);
  }

 private:
  /// Adds the white space since the last character. With a line end in it, nothing is left of it at
  /// the start and at the end of the text, and one blank elsewhere.
  void add_blanks(bool is_outside) {
    const std::size_t wanted = !has_end_ ? blanks_ : is_outside ? 0 : 1;
    text_.append(wanted, ' ');
    blanks_ = 0;
    has_end_ = false;
  }

  std::string text_;
  std::size_t blanks_ = 0;
  bool has_end_ = false;
};

}  // namespace one_line_detail

/// Returns `text` on one line, as a terminal and a field between tabs can have it. White space with
/// a line end in it becomes one blank, or nothing at the start and the end, as the host's
/// remove_endl() has it; a tab becomes a blank. Control characters, characters that cannot be seen
/// or turn the direction of text, and bytes that are not UTF-8 become U+FFFD.
inline std::string one_line(std::string_view text) {
  // Most texts are like this.
  const bool is_plain =
      std::all_of(text.begin(), text.end(), [](char byte) { return byte >= ' ' && byte <= '~'; });
  if (is_plain) {
    return std::string(text);
  }
  one_line_detail::Line line(text.size());
  for_each_code_point(text,
                      [&line](char32_t value, std::string_view bytes) { line.add(value, bytes); });
  return line.take();
}

}  // namespace vond::extension
