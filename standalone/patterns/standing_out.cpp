#include "standalone/patterns/standing_out.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

namespace vond::standalone {
namespace {

constexpr std::int64_t MOST_DIGITS = 17;

/// Returns the power of ten that all numbers are whole multiples of, if they are small enough then.
std::optional<std::int64_t> find_unit(const std::vector<CountedNumber>& numbers) {
  std::int64_t last = std::numeric_limits<std::int64_t>::max();
  std::int64_t first = std::numeric_limits<std::int64_t>::min();
  for (const auto& [number, count] : numbers) {
    if (!number->is_zero()) {
      last = std::min(last, number->last_power());
      first = std::max(first, number->first_power());
    }
  }
  if (first < last) {
    return 0;
  }
  return first - last < MOST_DIGITS ? std::optional(last) : std::nullopt;
}

/// Takes from both ends of `sorted`, by turns, what is farther from its quartile.
template <typename Number>
std::vector<std::size_t> farthest(const std::vector<Number>& sorted, Number low, Number high,
                                  std::size_t most) {
  std::vector<std::size_t> found;
  const Number allowed = 3 * (high - low);
  std::size_t left = 0;
  std::size_t right = sorted.size();
  while (found.size() < most && left < right) {
    const Number below = low - sorted[left];
    const Number above = sorted[right - 1] - high;
    if (below > allowed && below >= above) {
      found.push_back(left++);
    } else if (above > allowed) {
      // Of numbers that are written differently the first.
      const auto equal = std::lower_bound(sorted.begin(), sorted.end(), sorted[right - 1]);
      const auto first = static_cast<std::size_t>(equal - sorted.begin());
      for (std::size_t at = first; at < right && found.size() < most; ++at) {
        found.push_back(at);
      }
      right = first;
    } else {
      break;
    }
  }
  return found;
}

template <typename Number, typename Convert>
std::vector<std::size_t> farthest_of(const std::vector<CountedNumber>& sorted, std::size_t most,
                                     Convert convert) {
  std::vector<Number> numbers;
  numbers.reserve(sorted.size());
  for (const auto& [number, count] : sorted) {
    numbers.push_back(convert(*number));
  }
  return farthest<Number>(numbers, numbers[quartile(sorted, 1)], numbers[quartile(sorted, 3)],
                          most);
}

}  // namespace

std::size_t quartile(const std::vector<CountedNumber>& sorted, std::size_t quarters) {
  std::uint64_t total = 0;
  for (const auto& [number, count] : sorted) {
    total += count;
  }
  const std::uint64_t last = total == 0 ? 0 : total - 1;
  const std::uint64_t wanted = last / 4 * quarters + last % 4 * quarters / 4;
  std::size_t place = 0;
  for (std::uint64_t before = sorted[0].count; before <= wanted && place + 1 < sorted.size();
       before += sorted[place].count) {
    ++place;
  }
  return place;
}

std::vector<std::size_t> standing_out(const std::vector<CountedNumber>& sorted, std::size_t most) {
  if (const auto unit = find_unit(sorted)) {
    return farthest_of<std::int64_t>(
        sorted, most, [unit](const Decimal& number) { return number.in_units_of(*unit); });
  }
  return farthest_of<double>(sorted, most,
                             [](const Decimal& number) { return number.nearest_double(); });
}

}  // namespace vond::standalone
