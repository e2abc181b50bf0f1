#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "standalone/patterns/decimal.h"

namespace vond::standalone {

/// A number and how often it was found.
struct CountedNumber {
  const Decimal* number;
  std::uint64_t count;
};

/// Returns the place of the element at floor((n-1) * quarters / 4) of all that was found, n numbers
/// in the order of `sorted`; the first place when nothing was counted.
std::size_t quartile(const std::vector<CountedNumber>& sorted, std::size_t quarters);

/// Returns the places of up to `most` numbers that are more than three interquartile ranges below
/// the first or above the third quartile, the farthest first; of equally far ones the first. Exact
/// when all of them can be counted in units of a power of ten below 10^17, else to some 15 digits.
std::vector<std::size_t> standing_out(const std::vector<CountedNumber>& sorted, std::size_t most);

}  // namespace vond::standalone
