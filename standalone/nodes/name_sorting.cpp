#include "standalone/nodes/name_sorting.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

namespace vond::standalone {

namespace {

/// Sorts items by the keys that `key_of` returns, in a time linear in their number, so that a name
/// in a large set costs what it costs in a small one; equal ones keep their order. `scratch` is as
/// large as `items`.
template <typename Item, typename KeyOf>
void radix_sort(std::vector<Item>& items, std::vector<Item>& scratch, KeyOf key_of) {
  NumberKey varying = 0;
  for (const Item item : items) {
    varying |= key_of(item) ^ key_of(items.front());
  }
  // Bytes that are the same everywhere are left out: few are not, as names hold small numbers of a
  // few lengths.
  for (unsigned shift = 0; shift < 64; shift += 8) {
    if (((varying >> shift) & 0xFFU) == 0) {
      continue;
    }
    const auto byte_of = [=](const Item item) { return (key_of(item) >> shift) & 0xFFU; };
    std::array<std::size_t, 257> starts = {};
    for (const Item item : items) {
      ++starts[byte_of(item) + 1];
    }
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    for (const Item item : items) {
      scratch[starts[byte_of(item)]++] = item;
    }
    items.swap(scratch);
  }
}

/// Sorts numbers and drops repeated ones by setting a bit for each; false, with nothing done, when
/// they are too scattered for that. The numbers of one axis seldom are, and this costs half of what
/// sorting does.
bool sort_in_bitmap(std::vector<NumberKey>& numbers) {
  using Word = std::uint64_t;
  constexpr std::size_t BITS = std::numeric_limits<Word>::digits;
  /// The numbers of one length.
  struct Range {
    NumberKey least = std::numeric_limits<NumberKey>::max();
    NumberKey greatest = 0;
    std::size_t first_word = 0;
    std::size_t words = 0;
  };
  std::array<Range, LONG_NUMBER + 1> ranges;
  for (const NumberKey number : numbers) {
    Range& range = ranges[length_of(number)];
    range.least = std::min(range.least, number);
    range.greatest = std::max(range.greatest, number);
  }
  std::size_t words = 0;
  for (Range& range : ranges) {
    if (range.least > range.greatest) {
      continue;
    }
    range.first_word = words;
    range.words = (range.greatest - range.least) / BITS + 1;
    words += range.words;
  }
  if (words > numbers.size()) {
    return false;
  }

  std::vector<Word> bitmap(words);
  for (const NumberKey number : numbers) {
    const Range& range = ranges[length_of(number)];
    const NumberKey bit = number - range.least;
    bitmap[range.first_word + bit / BITS] |= Word{1} << (bit % BITS);
  }
  numbers.clear();
  for (const Range& range : ranges) {
    for (std::size_t i = 0; i < range.words; ++i) {
      for (Word word = bitmap[range.first_word + i]; word != 0; word &= word - 1) {
        numbers.push_back(range.least + i * BITS + static_cast<unsigned>(std::countr_zero(word)));
      }
    }
  }
  return true;
}

}  // namespace

void sort_names(std::vector<NumberKey>& numbers, std::size_t axes) {
  if (axes == 1 && sort_in_bitmap(numbers)) {
    return;
  }
  const auto less = [axes](const NumberKey* a, const NumberKey* b) {
    return std::lexicographical_compare(a, a + axes, b, b + axes);
  };
  std::vector<const NumberKey*> names;
  for (std::size_t at = 0; at < numbers.size(); at += axes) {
    names.push_back(&numbers[at]);
  }
  // Few names do not make up for the radix sort's tables.
  constexpr std::size_t FEW_NAMES = 256;
  if (names.size() < FEW_NAMES) {
    std::sort(names.begin(), names.end(), less);
  } else if (!std::is_sorted(names.begin(), names.end(), less)) {
    std::vector<const NumberKey*> scratch(names.size());
    for (std::size_t axis = axes; axis-- > 0;) {
      radix_sort(names, scratch, [axis](const NumberKey* name) { return name[axis]; });
    }
  }
  std::vector<NumberKey> sorted;
  sorted.reserve(numbers.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool is_new = i == 0 || less(names[i - 1], names[i]);
    if (is_new) {
      sorted.insert(sorted.end(), names[i], names[i] + axes);
    }
  }
  numbers = std::move(sorted);
}

}  // namespace vond::standalone
