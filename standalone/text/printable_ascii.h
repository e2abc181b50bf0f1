#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace vond::standalone {

namespace printable_ascii {

inline bool is_other(char byte) { return static_cast<unsigned char>(byte - ' ') > '~' - ' '; }

// Blocks without a way out in their middle are what compilers turn into vector instructions.
inline constexpr std::size_t BLOCK_SIZE = 64;

inline bool has_other_in_block(const char* block) {
  unsigned char others = 0;
  for (std::size_t i = 0; i < BLOCK_SIZE; ++i) {
    others |= static_cast<unsigned char>(is_other(block[i]));
  }
  return others != 0;
}

}  // namespace printable_ascii

/// True when each byte is a printable ASCII character or a space. Runs at memory speed.
inline bool is_printable_ascii(std::string_view text) noexcept {
  using namespace printable_ascii;
  if (text.size() < BLOCK_SIZE) {
    return std::none_of(text.begin(), text.end(), is_other);
  }
  const char* const last_block = text.data() + text.size() - BLOCK_SIZE;
  for (const char* block = text.data(); block < last_block; block += BLOCK_SIZE) {
    if (has_other_in_block(block)) {
      return false;
    }
  }
  // Overlaps the block before, which is quicker than looking at single bytes.
  return !has_other_in_block(last_block);
}

}  // namespace vond::standalone
