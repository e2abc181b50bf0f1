#include "standalone/findings/line_keys.h"

#include <gtest/gtest.h>

#include <string>

#include "standalone/json/json_values.h"

namespace {

using vond::standalone::FindingKey;
using vond::standalone::LineKeys;
using vond::standalone::ValueFault;

/// Where keys stand does not matter here.
constexpr const char* WHERE = "";

template <typename Use>
std::string message_of(const Use& use) {
  try {
    use();
  } catch (const ValueFault& fault) {
    return fault.message;
  }
  return "no fault";
}

TEST(LineKeys, KnowsTheKeysThatWereAdded) {
  LineKeys keys;
  EXPECT_FALSE(keys.has(FindingKey::ID));
  keys.add(FindingKey::ID, WHERE);
  EXPECT_TRUE(keys.has(FindingKey::ID));
  EXPECT_FALSE(keys.has(FindingKey::SEVERITY));
  keys.clear();
  EXPECT_FALSE(keys.has(FindingKey::ID));
}

TEST(LineKeys, RefusesASecondKeyOfOneName) {
  LineKeys keys;
  keys.add(FindingKey::ID, WHERE);
  keys.add_unknown("other", WHERE);
  EXPECT_EQ(message_of([&] { keys.add(FindingKey::ID, WHERE); }),
            "found the key \"id\" a second time, expected each key once in an object");
  EXPECT_EQ(message_of([&] { keys.add_unknown("other", WHERE); }),
            "found the key \"other\" a second time, expected each key once in an object");
  keys.clear();
  EXPECT_EQ(message_of([&] { keys.add(FindingKey::ID, WHERE); }), "no fault");
  EXPECT_EQ(message_of([&] { keys.add_unknown("other", WHERE); }), "no fault");
}

TEST(LineKeys, LeavesExaminedALineOfItsOwn) {
  const std::string beside =
      " in one object with others, expected a line of its own for \"examined\"";
  LineKeys keys;
  keys.add(FindingKey::ID, WHERE);
  EXPECT_EQ(message_of([&] { keys.add(FindingKey::EXAMINED, WHERE); }),
            "found the key \"examined\"" + beside);
  keys.clear();
  keys.add(FindingKey::EXAMINED, WHERE);
  EXPECT_EQ(message_of([&] { keys.add(FindingKey::ID, WHERE); }), "found the key \"id\"" + beside);
  EXPECT_EQ(message_of([&] { keys.add(FindingKey::EXAMINED, WHERE); }),
            "found the key \"examined\" a second time, expected each key once in an object");
  EXPECT_EQ(message_of([&] { keys.add_unknown("other", WHERE); }), "no fault");
}

TEST(LineKeys, RequiresIdAndSeverityOfAFinding) {
  LineKeys keys;
  keys.add(FindingKey::MESSAGE, WHERE);
  EXPECT_EQ(message_of([&] { keys.require_those_of_a_finding(WHERE); }),
            "the key \"id\" is missing, expected it in every finding");
  keys.add(FindingKey::ID, WHERE);
  EXPECT_EQ(message_of([&] { keys.require_those_of_a_finding(WHERE); }),
            "the key \"severity\" is missing, expected it in every finding");
  keys.add(FindingKey::SEVERITY, WHERE);
  EXPECT_EQ(message_of([&] { keys.require_those_of_a_finding(WHERE); }), "no fault");
}

TEST(LineKeys, SuggestsTheUnknownKeyThatWasMeant) {
  LineKeys keys;
  keys.add(FindingKey::ID, WHERE);
  keys.add_unknown("mesage", WHERE);
  keys.add_unknown("Severty", WHERE);
  EXPECT_EQ(message_of([&] { keys.require_those_of_a_finding(WHERE); }),
            "the key \"severity\" is missing, expected it in every finding; did you mean it by "
            "\"Severty\"?");
}

TEST(LineKeys, ListsUnknownKeysButNotThoseThatAreMeantToBeIgnored) {
  LineKeys keys;
  const std::string_view line = "abc";
  keys.add_unknown("b", line.data() + 1);
  keys.add_unknown("x-note", line.data());
  keys.add_unknown("a", line.data() + 2);
  ASSERT_EQ(keys.unknown().size(), 2U);
  EXPECT_EQ(keys.unknown()[0].key, "b");
  EXPECT_EQ(keys.unknown()[0].where, line.data() + 1);
  EXPECT_EQ(keys.unknown()[1].key, "a");
  keys.clear();
  EXPECT_TRUE(keys.unknown().empty());
}

}  // namespace
