#include "standalone/report/known_by_number.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using Known = vond::standalone::KnownByNumber<std::uint64_t>;

TEST(KnownByNumber, IsFound) {
  Known known;
  EXPECT_EQ(known.find(7), nullptr);
  known.remember(7, 70);
  known.remember(8, 80);
  ASSERT_NE(known.find(7), nullptr);
  EXPECT_EQ(*known.find(7), 70U);
  EXPECT_EQ(*known.find(8), 80U);
  EXPECT_EQ(known.find(9), nullptr);
}

TEST(KnownByNumber, IsNothingWithoutANumber) {
  Known known;
  EXPECT_EQ(known.find(Known::NO_NUMBER), nullptr);
  known.remember(Known::NO_NUMBER, 1);
  EXPECT_EQ(known.find(Known::NO_NUMBER), nullptr);
}

TEST(KnownByNumber, MayBeForgottenButNotMixedUp) {
  Known known;
  int forgotten = 0;
  for (int round = 0; round < 3; ++round) {
    for (std::uint64_t number = 1; number <= 5000; ++number) {
      const std::uint64_t* const found = known.find(number);
      forgotten += found == nullptr ? 1 : 0;
      ASSERT_TRUE(found == nullptr || *found == number * 2);
      known.remember(number, number * 2);
    }
  }
  EXPECT_GT(forgotten, 5000);
}

}  // namespace
