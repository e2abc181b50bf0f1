#pragma once

#include <cstddef>
#include <cstdint>

namespace vond::standalone {

/// A number in a name. Keys compare as the digits do: by length, then by text. The upper bits are
/// the number of digits, the lower ones the value; a number too long for that has the length
/// LONG_NUMBER and its place in NumberTable instead.
using NumberKey = std::uint64_t;

inline constexpr unsigned VALUE_BITS = 57;
inline constexpr std::size_t MAX_PACKED_DIGITS = 17;  // 10^17 < 2^57
inline constexpr std::size_t LONG_NUMBER = MAX_PACKED_DIGITS + 1;

constexpr NumberKey pack(std::size_t length, std::uint64_t value) {
  return (static_cast<NumberKey>(length) << VALUE_BITS) | value;
}
constexpr std::size_t length_of(NumberKey key) { return key >> VALUE_BITS; }
constexpr std::uint64_t value_of(NumberKey key) { return key & ((NumberKey{1} << VALUE_BITS) - 1); }

}  // namespace vond::standalone
