#include "standalone/text/messages.h"

#include <gtest/gtest.h>

#include <array>

namespace vond::standalone {
namespace {

TEST(InQuotes, PutsDoubleQuotesAroundAText) {
  EXPECT_EQ(in_quotes("a b"), "\"a b\"");
  EXPECT_EQ(in_quotes(""), "\"\"");
}

TEST(Join, PutsACommaBetweenTexts) {
  EXPECT_EQ(join(std::vector<std::string>{}), "");
  EXPECT_EQ(join(std::vector<std::string>{"a"}), "a");
  EXPECT_EQ(join(std::array<std::string_view, 3>{"a", "b", "c"}), "a, b, c");
}

TEST(Join, LeavesOutEmptyTextsAtTheStart) {
  EXPECT_EQ(join(std::vector<std::string>{"", "a", "", "b"}), "a, , b");
}

TEST(Join, TakesAFunctionThatMakesTextsOfItems) {
  EXPECT_EQ(join(std::vector<int>{1, 20}, [](int number) { return std::to_string(number); }),
            "1, 20");
}

TEST(OneOf, ListsWordsInQuotes) {
  EXPECT_EQ(one_of({"A"}), "one of \"A\"");
  EXPECT_EQ(one_of({"A", "B", "C"}), "one of \"A\", \"B\", \"C\"");
}

}  // namespace
}  // namespace vond::standalone
