#include "standalone/nodes/digits.h"

#include <gtest/gtest.h>

namespace vond::standalone {
namespace {

constexpr std::uint64_t NO_LIMIT = 100'000'000'000'000'000;

std::string sum(std::uint64_t summand, std::string digits) {
  add_to_digits(summand, digits);
  return digits;
}

TEST(HasLeadingZero, IsNotTrueOfZeroItself) {
  EXPECT_FALSE(has_leading_zero("0"));
  EXPECT_FALSE(has_leading_zero("10"));
  EXPECT_TRUE(has_leading_zero("00"));
  EXPECT_TRUE(has_leading_zero("01"));
}

TEST(LimitedDifference, IsThatOfTheNumbersWhateverTheirZeros) {
  EXPECT_EQ(limited_difference("7", "7", NO_LIMIT), 0);
  EXPECT_EQ(limited_difference("1000", "999", NO_LIMIT), 1);
  EXPECT_EQ(limited_difference("0012", "3", NO_LIMIT), 9);
  EXPECT_EQ(limited_difference("12", "0003", NO_LIMIT), 9);
}

TEST(LimitedDifference, IsNothingWhenTheSecondNumberIsHigher) {
  EXPECT_EQ(limited_difference("8", "9", NO_LIMIT), std::nullopt);
  EXPECT_EQ(limited_difference("0099", "100", NO_LIMIT), std::nullopt);
}

TEST(LimitedDifference, StopsAtItsLimitHoweverLongTheNumbersAre) {
  EXPECT_EQ(limited_difference("11", "1", 10), 10);
  EXPECT_EQ(limited_difference("12", "1", 10), 10);
  EXPECT_EQ(limited_difference(std::string(1000, '9'), "1", NO_LIMIT), NO_LIMIT);
  EXPECT_EQ(limited_difference("1" + std::string(1000, '0'), std::string(1000, '9'), NO_LIMIT), 1);
}

TEST(AddToDigits, KeepsLeadingZerosWhereThereIsRoom) {
  EXPECT_EQ(sum(1, "007"), "008");
  EXPECT_EQ(sum(1, "099"), "100");
  EXPECT_EQ(sum(995, "007"), "1002");
  EXPECT_EQ(sum(0, "00"), "00");
}

TEST(AddToDigits, MakesLongNumbersLonger) {
  EXPECT_EQ(sum(1, std::string(30, '9')), "1" + std::string(30, '0'));
}

}  // namespace
}  // namespace vond::standalone
