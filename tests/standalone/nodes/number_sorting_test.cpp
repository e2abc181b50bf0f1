#include "standalone/nodes/number_sorting.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>
#include <vector>

namespace {

using vond::standalone::sort_unique;

template <typename Number>
void expect_sorted_once(std::vector<Number> numbers) {
  const std::set<Number> expected(numbers.begin(), numbers.end());
  sort_unique(numbers);
  EXPECT_EQ(numbers, (std::vector<Number>(expected.begin(), expected.end())));
}

TEST(NumberSorting, KeepsEveryNumberOnce) {
  expect_sorted_once<int>({});
  expect_sorted_once<int>({7});
  expect_sorted_once<int>({3, -1, 3, 0, -1, 3});
  expect_sorted_once<std::uint32_t>({1, 2, 2, 9});
}

TEST(NumberSorting, PutsManyNumbersOfAnySizeInOrder) {
  for (const unsigned bits : {1U, 8U, 9U, 20U, 31U, 32U}) {
    for (const std::size_t count : {255U, 256U, 5000U}) {
      std::mt19937 source(bits);
      const auto random = [&source] { return static_cast<std::uint32_t>(source()); };
      std::vector<std::uint32_t> numbers;
      std::vector<int> signed_numbers = {std::numeric_limits<int>::min(),
                                         std::numeric_limits<int>::max(), 0, -1};
      while (numbers.size() < count) {
        numbers.push_back(random() >> (32 - bits));
        signed_numbers.push_back(static_cast<int>(random() >> (32 - bits)));
        signed_numbers.push_back(-static_cast<int>((random() >> 1U) >> (32 - bits)));
      }
      expect_sorted_once(numbers);
      expect_sorted_once(signed_numbers);
    }
  }
}

}  // namespace
