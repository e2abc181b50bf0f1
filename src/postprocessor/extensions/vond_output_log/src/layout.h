#pragma once

#include <cstddef>
#include <string>

namespace vond_output_log {

inline std::string blanks(std::size_t count) { return std::string(count, ' '); }

/// Returns the number of decimal digits; 0 has one.
constexpr std::size_t count_digits(std::size_t number) {
  std::size_t digits = 1;
  for (; number > 9; number /= 10) {
    ++digits;
  }
  return digits;
}

}  // namespace vond_output_log
