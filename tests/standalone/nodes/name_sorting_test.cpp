#include "standalone/nodes/name_sorting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "standalone/nodes/name_radix_sort.h"
#include "standalone/nodes/number_bitmap.h"

namespace vond::standalone {
namespace {

using Numbers = std::vector<NumberKey>;

Numbers sorted_each_once(Numbers numbers) {
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

Numbers random_numbers(std::size_t count, std::uint64_t below, unsigned seed) {
  std::mt19937_64 random(seed);
  Numbers numbers;
  for (; count > 0; --count) {
    numbers.push_back(pack(1 + random() % 4, random() % below));
  }
  return numbers;
}

Numbers in_bitmap(Numbers numbers) {
  const NumberBitmap bitmap(numbers);
  EXPECT_TRUE(bitmap.is_dense());
  bitmap.sort(numbers);
  return numbers;
}

TEST(NumberBitmap, SortsNumbersAndDropsRepeatedOnes) {
  const Numbers numbers = {pack(2, 12), pack(2, 10), pack(2, 12), pack(2, 11)};
  EXPECT_EQ(in_bitmap(numbers), (Numbers{pack(2, 10), pack(2, 11), pack(2, 12)}));
}

TEST(NumberBitmap, KeepsNumbersOfDifferentLengthsApart) {
  const Numbers numbers = {pack(3, 1), pack(1, 1), pack(2, 1), pack(1, 0)};
  EXPECT_EQ(in_bitmap(numbers), (Numbers{pack(1, 0), pack(1, 1), pack(2, 1), pack(3, 1)}));
}

TEST(NumberBitmap, HoldsTheNumbersOnEitherSideOfAWordsEnd) {
  Numbers numbers;
  for (const std::uint64_t value : {100U, 163U, 164U, 227U, 228U}) {
    numbers.push_back(pack(3, value));
  }
  EXPECT_EQ(in_bitmap({numbers.rbegin(), numbers.rend()}), numbers);
}

TEST(NumberBitmap, SortsAsComparingDoes) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    const Numbers numbers = random_numbers(500, 5'000, seed);
    EXPECT_EQ(in_bitmap(numbers), sorted_each_once(numbers)) << "seed " << seed;
  }
}

TEST(NumberBitmap, IsDenseAsLongAsItsBitsTakeNoMoreMemoryThanTheNumbers) {
  EXPECT_TRUE(NumberBitmap({pack(3, 0), pack(3, 127)}).is_dense());
  EXPECT_FALSE(NumberBitmap({pack(3, 0), pack(3, 128)}).is_dense());
  EXPECT_FALSE(
      NumberBitmap({pack(LONG_NUMBER - 1, 0), pack(LONG_NUMBER - 1, 1ULL << 56U)}).is_dense());
}

std::vector<const NumberKey*> names_of(const Numbers& numbers, std::size_t axes) {
  std::vector<const NumberKey*> names;
  for (std::size_t at = 0; at < numbers.size(); at += axes) {
    names.push_back(&numbers[at]);
  }
  return names;
}

void expect_sorted_as_by_comparing(const Numbers& numbers, std::size_t axes) {
  std::vector<const NumberKey*> names = names_of(numbers, axes);
  std::vector<const NumberKey*> expected = names;
  std::stable_sort(expected.begin(), expected.end(),
                   [axes](const NumberKey* a, const NumberKey* b) {
                     return std::lexicographical_compare(a, a + axes, b, b + axes);
                   });
  NameRadixSort(names).sort(axes);
  EXPECT_EQ(names, expected);
}

TEST(NameRadixSort, SortsAsComparingDoesAndKeepsTheOrderOfEqualNames) {
  for (std::size_t axes = 1; axes <= 3; ++axes) {
    expect_sorted_as_by_comparing(random_numbers(600, 7, 1), axes);
    expect_sorted_as_by_comparing(random_numbers(600, 300, 2), axes);
    expect_sorted_as_by_comparing(random_numbers(600, 1ULL << 57U, 3), axes);
  }
}

TEST(NameRadixSort, TakesNoNamesAndNamesThatAreAllEqual) {
  expect_sorted_as_by_comparing({}, 2);
  expect_sorted_as_by_comparing(Numbers(10, pack(2, 12)), 2);
}

/// Sorts the names one by one, by comparing them.
Numbers names_sorted_each_once(const Numbers& numbers, std::size_t axes) {
  std::vector<Numbers> names;
  for (const NumberKey* name : names_of(numbers, axes)) {
    names.emplace_back(name, name + axes);
  }
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  Numbers sorted;
  for (const Numbers& name : names) {
    sorted.insert(sorted.end(), name.begin(), name.end());
  }
  return sorted;
}

void expect_sorted(const Numbers& numbers, std::size_t axes) {
  Numbers sorted = numbers;
  sort_names(sorted, axes);
  EXPECT_EQ(sorted, names_sorted_each_once(numbers, axes))
      << numbers.size() / axes << " names of " << axes << " axes";
}

TEST(SortNames, SortsFewAndManyNamesCloseAndScattered) {
  for (std::size_t axes = 1; axes <= 3; ++axes) {
    for (const std::size_t names : {1U, 2U, 255U, 256U, 257U, 2000U}) {
      expect_sorted(random_numbers(names * axes, 20, 1), axes);
      expect_sorted(random_numbers(names * axes, 1ULL << 57U, 2), axes);
    }
  }
}

TEST(SortNames, LeavesSortedNamesAndDropsRepeatedOnes) {
  Numbers numbers;
  for (std::uint64_t i = 0; i < 1000; ++i) {
    numbers.insert(numbers.end(), {pack(3, i / 4), pack(1, i / 2 % 2)});
  }
  expect_sorted(numbers, 2);
}

}  // namespace
}  // namespace vond::standalone
