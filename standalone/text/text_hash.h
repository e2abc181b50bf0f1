#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vond::standalone {

/// Returns a hash of a hash and what comes next.
constexpr std::uint64_t mixed(std::uint64_t hash, std::uint64_t next) {
  constexpr std::uint64_t GOLDEN_RATIO = 0x9e3779b97f4a7c15;
  hash = (hash ^ next) * GOLDEN_RATIO;
  return hash ^ hash >> 32U;
}

/// Returns a hash of which every bit depends on every byte of `text`. For tables of one run alone.
/// Takes little more time for the short texts that most are than to look at them.
inline std::size_t hash_of_text(std::string_view text) {
  constexpr std::size_t BLOCK = sizeof(std::uint64_t);
  std::uint64_t hash = text.size();
  const auto mix = [&hash](std::uint64_t bytes) { hash = mixed(hash, bytes); };
  const auto block_at = [text](std::size_t at) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text.data() + at, BLOCK);
    return bytes;
  };
  std::size_t at = 0;
  for (; at + BLOCK <= text.size(); at += BLOCK) {
    mix(block_at(at));
  }
  if (at < text.size() && text.size() >= BLOCK) {
    // Some of these bytes for the second time: that costs less than to take the rest one by one.
    mix(block_at(text.size() - BLOCK));
  } else if (at < text.size()) {
    std::uint64_t rest = 0;
    for (; at < text.size(); ++at) {
      rest = rest << 8U | static_cast<unsigned char>(text[at]);
    }
    mix(rest);
  }
  // The last bytes of a block have not reached the lowest bits yet.
  mix(0);
  return hash;
}

struct TextHash {
  std::size_t operator()(std::string_view text) const { return hash_of_text(text); }
};

}  // namespace vond::standalone
