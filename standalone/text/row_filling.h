#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vond::standalone {

/// The rows that a line is broken into. Room is counted in columns.
struct RowLayout {
  /// What every row but the first begins with.
  std::string continuation;
  /// The room beside it.
  std::size_t continuation_room = 0;
  /// Whether a word that is too long for a row is split, or stands out.
  bool splits_words = true;
};

/// Appends words and the blanks between them to `output`, with a break where a row is full. The
/// first row is begun already, with `first_room` left in it.
void fill_rows(std::string_view words, bool is_printable_ascii, std::size_t first_room,
               const RowLayout& layout, std::string& output);

}  // namespace vond::standalone
