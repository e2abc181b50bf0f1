#include "standalone/text/suggestion.h"

#include <gtest/gtest.h>

namespace {

using vond::standalone::suggestion_for;

const std::vector<std::string_view> WORDS = {"id", "severity", "critical", "informational"};

TEST(Suggestion, NamesTheCandidateThatIsOneTypingErrorAway) {
  EXPECT_EQ(suggestion_for("severty", WORDS), "; did you mean \"severity\"?");
  EXPECT_EQ(suggestion_for("severrity", WORDS), "; did you mean \"severity\"?");
  EXPECT_EQ(suggestion_for("sevarity", WORDS), "; did you mean \"severity\"?");
}

TEST(Suggestion, CountsASwapOfNeighboursAsOneError) {
  EXPECT_EQ(suggestion_for("di", WORDS), "; did you mean \"id\"?");
  EXPECT_EQ(suggestion_for("esveirty", WORDS), "; did you mean \"severity\"?");
}

TEST(Suggestion, IgnoresCase) {
  EXPECT_EQ(suggestion_for("SEVERITY", WORDS), "; did you mean \"severity\"?");
}

TEST(Suggestion, TakesABeginningOfThreeLetters) {
  EXPECT_EQ(suggestion_for("crit", WORDS), "; did you mean \"critical\"?");
  EXPECT_EQ(suggestion_for("inf", WORDS), "; did you mean \"informational\"?");
  EXPECT_EQ(suggestion_for("se", WORDS), "");
}

TEST(Suggestion, IsEmptyWhenNothingIsNear) {
  EXPECT_EQ(suggestion_for("hostname", WORDS), "");
  EXPECT_EQ(suggestion_for("", WORDS), "");
  EXPECT_EQ(suggestion_for("x", WORDS), "");
  EXPECT_EQ(suggestion_for("severity", {}), "");
}

TEST(Suggestion, TakesTheNearestAndOfEqualsTheFirst) {
  EXPECT_EQ(suggestion_for("noda", {"nodes", "node"}), "; did you mean \"node\"?");
  EXPECT_EQ(suggestion_for("bat", {"cat", "rat"}), "; did you mean \"cat\"?");
}

TEST(Suggestion, DoesNotTryWordsOfManyLetters) {
  EXPECT_EQ(suggestion_for(std::string(65, 'a'), {std::string_view("a")}), "");
  const std::string longest(64, 'a');
  EXPECT_EQ(suggestion_for(longest, {longest}), "; did you mean \"" + longest + "\"?");
}

}  // namespace
