#pragma once

#include <cstddef>
#include <limits>
#include <string_view>

#include "standalone/text/ascii.h"

namespace vond::standalone {

/// What a reader sees as one character: a grapheme cluster of Unicode.
struct Cluster {
  /// In bytes, at least 1.
  std::size_t size;
  /// On a terminal.
  std::size_t columns;
};

constexpr std::size_t ascii_columns(char character) { return is_ascii_control(character) ? 0 : 1; }

/// As first_cluster(), which is quicker for most texts.
Cluster first_unicode_cluster(std::string_view text) noexcept;

/// Returns the cluster that `text` begins with, which is not empty and begins at a cluster's start.
/// A byte that is not UTF-8 is a cluster of one column.
inline Cluster first_cluster(std::string_view text) noexcept {
  // Between two ASCII characters of one line there is always a boundary.
  if (is_ascii(text[0]) && (text.size() == 1 || is_ascii(text[1]))) {
    return {1, ascii_columns(text[0])};
  }
  return first_unicode_cluster(text);
}

/// Returns the terminal columns of `text`. Stops counting above the limit, so that a line that is
/// far too long costs no more than its row.
std::size_t count_columns(std::string_view text,
                          std::size_t limit = std::numeric_limits<std::size_t>::max()) noexcept;

}  // namespace vond::standalone
