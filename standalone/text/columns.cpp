#include "standalone/text/columns.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdint>

#include "standalone/text/utf8.h"

namespace vond::standalone {

namespace {

std::size_t columns_of(const Character& character) {
  if (!character.is_utf8) {
    return 1;
  }
  const int columns = utf8proc_charwidth(static_cast<utf8proc_int32_t>(character.value));
  return static_cast<std::size_t>(std::max(columns, 0));
}

/// `state` is 0 before the first pair of a cluster and kept from pair to pair.
bool is_boundary(const Character& left, const Character& right, utf8proc_int32_t& state) {
  return !left.is_utf8 || !right.is_utf8 ||
         utf8proc_grapheme_break_stateful(static_cast<utf8proc_int32_t>(left.value),
                                          static_cast<utf8proc_int32_t>(right.value), &state);
}

}  // namespace

Cluster first_unicode_cluster(std::string_view text) noexcept {
  Character last = first_character(text);
  Cluster cluster{last.size, columns_of(last)};
  utf8proc_int32_t state = 0;
  while (cluster.size < text.size()) {
    const Character next = first_character(text.substr(cluster.size));
    if (is_boundary(last, next, state)) {
      break;
    }
    cluster.size += next.size;
    cluster.columns += columns_of(next);
    last = next;
  }
  return cluster;
}

std::size_t count_columns(std::string_view text, std::size_t limit) noexcept {
  std::size_t columns = 0;
  for (std::size_t at = 0; at < text.size() && columns <= limit;) {
    if (is_ascii(text[at])) {
      columns += ascii_columns(text[at++]);
    } else {
      const Character character = first_character(text.substr(at));
      columns += columns_of(character);
      at += character.size;
    }
  }
  return columns;
}

}  // namespace vond::standalone
