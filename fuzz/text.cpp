#include "fuzz/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

namespace vond::fuzz {
namespace {

/// What the first byte of a character tells: how many bytes follow, and the range of the second.
struct Sequence {
  std::size_t following;
  unsigned char low;
  unsigned char high;
};

bool is_between(unsigned char low, unsigned char byte, unsigned char high) {
  return low <= byte && byte <= high;
}

/// For a byte that starts no character more bytes follow than any text has.
Sequence sequence_of(unsigned char first) {
  if (first < 0x80) {
    return {0, 0, 0};
  }
  if (is_between(0xC2, first, 0xDF)) {
    return {1, 0x80, 0xBF};
  }
  if (first == 0xE0) {
    return {2, 0xA0, 0xBF};
  }
  if (first == 0xED) {
    return {2, 0x80, 0x9F};
  }
  if (is_between(0xE1, first, 0xEF)) {
    return {2, 0x80, 0xBF};
  }
  if (first == 0xF0) {
    return {3, 0x90, 0xBF};
  }
  if (is_between(0xF1, first, 0xF3)) {
    return {3, 0x80, 0xBF};
  }
  if (first == 0xF4) {
    return {3, 0x80, 0x8F};
  }
  return {std::numeric_limits<std::size_t>::max(), 0, 0};
}

}  // namespace

unsigned char take_byte(std::string_view& text) {
  if (text.empty()) {
    return 0;
  }
  const auto byte = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  return byte;
}

std::string_view take_line(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

int take_width(std::string_view& text) {
  using Limits = std::numeric_limits<int>;
  constexpr std::array<int, 6> UNUSUAL = {-1,   Limits::min(), Limits::max(), Limits::max() - 8,
                                          1000, 100'000};
  const std::size_t byte = take_byte(text);
  constexpr std::size_t USUAL = 256 - UNUSUAL.size();
  return byte < USUAL ? static_cast<int>(byte) : UNUSUAL[byte - USUAL];
}

std::vector<std::string_view> lines_of(std::string_view text) {
  std::vector<std::string_view> lines;
  std::size_t end = text.find('\n');
  for (; end != std::string_view::npos; end = text.find('\n')) {
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  lines.push_back(text);
  return lines;
}

bool is_utf8(std::string_view text) {
  while (!text.empty()) {
    const Sequence sequence = sequence_of(take_byte(text));
    if (sequence.following > text.size()) {
      return false;
    }
    for (std::size_t i = 0; i < sequence.following; ++i) {
      const unsigned char byte = take_byte(text);
      const bool is_second = i == 0;
      if (!is_between(is_second ? sequence.low : 0x80, byte, is_second ? sequence.high : 0xBF)) {
        return false;
      }
    }
  }
  return true;
}

bool is_ascii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

}  // namespace vond::fuzz
