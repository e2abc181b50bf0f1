#include "standalone/model/string_interner.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vond::standalone::StringInterner;

TEST(StringInterner, NumbersStringsInTheOrderOfTheirFirstAppearance) {
  StringInterner strings;
  EXPECT_EQ(strings.id_of("b"), 0U);
  EXPECT_EQ(strings.id_of("a"), 1U);
  EXPECT_EQ(strings.id_of("b"), 0U);
  EXPECT_EQ(strings.id_of("c"), 2U);
  EXPECT_EQ(strings.size(), 3U);
  EXPECT_EQ(strings[0], "b");
  EXPECT_EQ(strings[1], "a");
  EXPECT_EQ(strings[2], "c");
}

TEST(StringInterner, KnowsOnlyWhatItWasGiven) {
  StringInterner strings;
  EXPECT_FALSE(strings.contains("a"));
  EXPECT_EQ(strings.size(), 0U);
  strings.id_of("a");
  EXPECT_TRUE(strings.contains("a"));
  EXPECT_FALSE(strings.contains("A"));
  EXPECT_FALSE(strings.contains(""));
  EXPECT_EQ(strings.size(), 1U);
}

TEST(StringInterner, KeepsStringsWhoseSourceIsGone) {
  StringInterner strings;
  std::string source = "a name that is too long to be stored in place";
  strings.id_of(source);
  source.assign(source.size(), 'x');
  EXPECT_EQ(strings[0], "a name that is too long to be stored in place");
  EXPECT_EQ(strings.id_of("a name that is too long to be stored in place"), 0U);
  EXPECT_EQ(strings.id_of(source), 1U);
}

TEST(StringInterner, NeverMovesAString) {
  StringInterner strings;
  const std::string& first = strings[strings.id_of("n0")];
  for (int number = 1; number < 10000; ++number) {
    strings.id_of("n" + std::to_string(number));
  }
  EXPECT_EQ(&strings[0], &first);
  EXPECT_EQ(first, "n0");
  EXPECT_EQ(strings.id_of("n0"), 0U);
  EXPECT_EQ(strings.id_of("n4711"), 4711U);
  EXPECT_EQ(strings.size(), 10000U);
}

TEST(StringInterner, TellsApartEveryByte) {
  StringInterner strings;
  EXPECT_EQ(strings.id_of(""), 0U);
  EXPECT_EQ(strings.id_of(std::string("\0", 1)), 1U);
  EXPECT_EQ(strings.id_of(std::string("\0\0", 2)), 2U);
  EXPECT_EQ(strings.id_of("a"), 3U);
  EXPECT_EQ(strings.id_of("a "), 4U);
  EXPECT_EQ(strings.id_of(""), 0U);
}

}  // namespace
