#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/input/input_file.h"

namespace vond::standalone {

/// A part of a line, and where its first byte is, counted from 1.
struct LinePart {
  std::string_view text;
  std::size_t line = 0;
  /// In bytes.
  std::size_t column = 1;

  /// Returns what is left behind some bytes.
  LinePart behind(std::size_t bytes) const { return {text.substr(bytes), line, column + bytes}; }
};

/// Returns a part without the blanks around it.
LinePart without_blanks(LinePart part);

/// Calls `visit` for every line of a file of node sets that has more than blanks and a comment,
/// without these. A `#` begins a comment, but in single quotes. Throws InputError for a line that
/// is too long.
void for_each_node_set_line(InputFile& file, const std::function<void(const LinePart&)>& visit);

/// Returns the names of a node set, made harmless. Throws InputError, which names `file`.
std::vector<std::string> names_of_set(const InputFile& file, const LinePart& set);

}  // namespace vond::standalone
