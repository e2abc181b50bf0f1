#include "standalone/nodes/digits.h"

#include <algorithm>
#include <cstddef>

namespace vond::standalone {

bool has_leading_zero(std::string_view digits) {
  return digits.size() > 1 && digits.front() == '0';
}

std::optional<std::uint64_t> limited_difference(std::string_view high, std::string_view low,
                                                std::uint64_t limit) {
  const std::size_t length = std::max(low.size(), high.size());
  const auto digit = [length](std::string_view digits, std::size_t i) {
    const std::size_t missing = length - digits.size();
    return i < missing ? 0 : digits[i - missing] - '0';
  };
  // What the leading digits differ by never shrinks again once it is above 0, and never becomes
  // positive once it is below.
  std::int64_t difference = 0;
  for (std::size_t i = 0; i < length; ++i) {
    difference = 10 * difference + digit(high, i) - digit(low, i);
    if (difference < 0) {
      return std::nullopt;
    }
    if (static_cast<std::uint64_t>(difference) > limit) {
      return limit;
    }
  }
  return static_cast<std::uint64_t>(difference);
}

void add_to_digits(std::uint64_t summand, std::string& digits) {
  for (std::size_t i = digits.size(); summand > 0 && i-- > 0; summand /= 10) {
    summand += static_cast<std::uint64_t>(digits[i] - '0');
    digits[i] = static_cast<char>('0' + summand % 10);
  }
  if (summand > 0) {
    digits.insert(0, std::to_string(summand));
  }
}

}  // namespace vond::standalone
