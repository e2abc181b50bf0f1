#include "vond/extension/code_points.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace vond::test {
namespace {

using Visits = std::vector<std::pair<char32_t, std::string>>;

Visits visits(std::string_view text) {
  Visits visits;
  extension::for_each_code_point(text, [&visits](char32_t value, std::string_view bytes) {
    visits.emplace_back(value, bytes);
  });
  return visits;
}

/// Returns what bytes that are no UTF-8 are visited as.
Visits replaced(std::size_t bytes) { return Visits(bytes, {U'\uFFFD', "\xEF\xBF\xBD"}); }

TEST(CodePoints, OfAnEmptyTextAreNone) { EXPECT_EQ(visits(""), Visits()); }

TEST(CodePoints, HaveOneToFourBytes) {
  EXPECT_EQ(visits("a\u00e9\u20ac\U0001F600"), (Visits{{U'a', "a"},
                                                       {U'\u00e9', "\xC3\xA9"},
                                                       {U'\u20ac', "\xE2\x82\xAC"},
                                                       {U'\U0001F600', "\xF0\x9F\x98\x80"}}));
}

TEST(CodePoints, BytesOfZeroAreCharacters) {
  EXPECT_EQ(visits(std::string_view("\0", 1)), (Visits{{U'\0', std::string(1, '\0')}}));
}

TEST(CodePoints, TheFirstAndTheLastOfEverySizeAreUtf8) {
  EXPECT_EQ(visits("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF").size(),
            7U);
  EXPECT_EQ(visits("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
            (Visits{{U'\U00010000', "\xF0\x90\x80\x80"}, {U'\U0010FFFF', "\xF4\x8F\xBF\xBF"}}));
}

TEST(CodePoints, EachByteThatIsNoUtf8IsReplaced) {
  // A stray continuation, overlong forms, surrogates, above U+10FFFF, no first bytes at all.
  for (const std::string text :
       {"\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80",
        "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFE", "\xFF"}) {
    EXPECT_EQ(visits(text), replaced(text.size())) << testing::PrintToString(text);
  }
}

TEST(CodePoints, CharactersThatTheEndCutsAreReplaced) {
  EXPECT_EQ(visits("\xC3"), replaced(1));
  EXPECT_EQ(visits("\xE2\x82"), replaced(2));
  EXPECT_EQ(visits("\xF0\x9F\x98"), replaced(3));
}

TEST(CodePoints, WhatFollowsABrokenCharacterIsVisited) {
  EXPECT_EQ(visits("\xE2z"), (Visits{{U'\uFFFD', "\xEF\xBF\xBD"}, {U'z', "z"}}));
}

}  // namespace
}  // namespace vond::test
