#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <type_traits>
#include <vector>

namespace vond::standalone {

namespace number_sorting {

/// Fewer numbers do not make up for the counts.
inline constexpr std::size_t FEWEST_TO_COUNT = 256;

/// Returns what is in the order of the numbers as unsigned.
template <typename Number>
std::uint32_t in_order(Number number) {
  constexpr auto LOWEST = static_cast<std::uint32_t>(std::numeric_limits<Number>::min());
  return static_cast<std::uint32_t>(number) - LOWEST;
}

/// Sorts without comparing, byte by byte, in a time that is linear in the count.
template <typename Number>
void sort_by_bytes(std::vector<Number>& numbers) {
  std::uint32_t varying = 0;
  for (const Number number : numbers) {
    varying |= in_order(number) ^ in_order(numbers[0]);
  }
  std::vector<Number> scratch(numbers.size());
  for (unsigned shift = 0; shift < 32; shift += 8) {
    if (((varying >> shift) & 0xFFU) == 0) {
      continue;
    }
    const auto byte_of = [shift](Number number) { return (in_order(number) >> shift) & 0xFFU; };
    std::array<std::size_t, 257> starts = {};
    for (const Number number : numbers) {
      ++starts[byte_of(number) + 1];
    }
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    for (const Number number : numbers) {
      scratch[starts[byte_of(number)]++] = number;
    }
    numbers.swap(scratch);
  }
}

}  // namespace number_sorting

/// Sorts the numbers of nodes or of rows, and removes repetitions.
template <typename Number>
void sort_unique(std::vector<Number>& numbers) {
  static_assert(std::is_integral_v<Number> && sizeof(Number) == sizeof(std::uint32_t));
  if (!std::is_sorted(numbers.begin(), numbers.end())) {
    if (numbers.size() < number_sorting::FEWEST_TO_COUNT) {
      std::sort(numbers.begin(), numbers.end());
    } else {
      number_sorting::sort_by_bytes(numbers);
    }
  }
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

}  // namespace vond::standalone
