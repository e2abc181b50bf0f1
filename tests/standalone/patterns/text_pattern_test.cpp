#include "standalone/patterns/text_pattern.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "standalone/patterns/text_marks.h"
#include "tests/support/allocations.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vond::standalone::count_values;
using vond::standalone::original_texts;
using vond::standalone::TextPattern;
namespace text_marks = vond::standalone::text_marks;

/// Pattern or value with `#` for a place, NODE and node for the two forms of the own name, `$` for
/// the end of a text, `^` before a byte that could be taken for a mark.
std::string readable(std::string_view marked) {
  std::string text;
  for (const char c : marked) {
    switch (c) {
      case text_marks::PLACE:
        text += "#";
        break;
      case text_marks::NAME:
        text += "NODE";
        break;
      case text_marks::SHORT_NAME:
        text += "node";
        break;
      case text_marks::TEXT_END:
        text += "$";
        break;
      case text_marks::ESCAPE:
        text += "^";
        break;
      default:
        text += c;
    }
  }
  return text;
}

/// What a text becomes; checks that it can be made again.
struct Taken {
  explicit Taken(const std::string& text, const std::string& node = "") {
    TextPattern taken;
    // Of another finding, to be forgotten.
    taken.read("cn7", {"cn7 has 3 of 4", "x\x01 5"});
    taken.read(node, {text});
    EXPECT_THAT(original_texts(taken.pattern(), taken.values(), node), ElementsAre(text));
    EXPECT_EQ(count_values(taken.pattern()), taken.values().size());
    pattern = readable(taken.pattern());
    EXPECT_EQ(pattern.back(), '$');
    pattern.pop_back();
    for (const std::string_view value : taken.values()) {
      values.push_back(readable(value));
    }
  }

  std::string pattern;
  std::vector<std::string> values;
};

TEST(TextPattern, OfTextWithoutDigitsIsTheText) {
  EXPECT_EQ(Taken("").pattern, "");
  EXPECT_EQ(Taken("Fan is broken.").pattern, "Fan is broken.");
  EXPECT_THAT(Taken("Fan is broken.").values, IsEmpty());
}

TEST(TextPattern, HasAPlaceForEveryWordWithADigit) {
  const Taken taken("fan3 at 83C, 3.2e+03 rpm x");
  EXPECT_EQ(taken.pattern, "# at #, # rpm x");
  EXPECT_THAT(taken.values, ElementsAre("fan3", "83C", "3.2e+03"));
}

TEST(TextPattern, FindsDigitsWhereverTheyStand) {
  for (std::size_t size = 0; size < 40; ++size) {
    const std::string before = std::string(size, 'x') + " ";
    for (const char digit : {'0', '5', '9'}) {
      const Taken taken(before + digit + " " + before);
      EXPECT_EQ(taken.pattern, before + "# " + before);
      EXPECT_THAT(taken.values, ElementsAre(std::string(1, digit)));
    }
    EXPECT_THAT(Taken(before + "/:" + before).values, IsEmpty()) << "what stands beside digits";
  }
}

TEST(TextPattern, TakesOnlyAsciiDigits) {
  EXPECT_THAT(Taken("\xD9\xA3 \xB1\xB2\xB9 \xC2\xB2").values, IsEmpty());
  EXPECT_THAT(Taken("5\xC2\xB5m \xE2\x88\x92"
                    "4")
                  .values,
              ElementsAre("5\xC2\xB5m",
                          "\xE2\x88\x92"
                          "4"));
}

TEST(TextPattern, EndsWordsAtBlanksAndBrackets) {
  for (const char separator : std::string_view(" \t\r\n()[]{}<>,;=\"'|@")) {
    const std::string text = std::string("a1") + separator + "b" + separator + "2";
    EXPECT_THAT(Taken(text).values, ElementsAre("a1", "2")) << separator;
  }
  for (const char other : std::string_view("/\\#%&*+-_~^`$:.!?")) {
    EXPECT_THAT(Taken(std::string("a1") + other + "b").values,
                ElementsAre(std::string("a1") + other + "b"));
  }
}

TEST(TextPattern, LeavesPunctuationAtTheEndsOfWords) {
  const Taken taken("...a.1!: ?2? !:. 3");
  EXPECT_EQ(taken.pattern, "...#!: ?#? !:. #");
  EXPECT_THAT(taken.values, ElementsAre("a.1", "2", "3"));
}

TEST(TextPattern, KeepsThePointOfANumberWithoutAWholePartInTheWord) {
  const Taken taken(".5 at [.5], (.05) x=.5C ?.5 1,.5, .5.");
  EXPECT_EQ(taken.pattern, "# at [#], (#) x=# ?# #,#, #.");
  EXPECT_THAT(taken.values, ElementsAre(".5", ".5", ".05", ".5C", ".5", "1", ".5", ".5"));
  EXPECT_THAT(Taken(".5.log -.5 +.5 .1.2.3 v.5").values,
              ElementsAre(".5.log", "-.5", "+.5", ".1.2.3", "v.5"));
}

TEST(TextPattern, TakesNoPointThatEndsASentenceOrLeavesSomethingOutForThatOfANumber) {
  EXPECT_EQ(Taken("at 5 C. 7 fans").pattern, "at # C. # fans");
  EXPECT_EQ(Taken("and ...5 or ..5, 3. ").pattern, "and ...# or ..#, #. ");
  EXPECT_EQ(Taken(".a5 .:5 .(5").pattern, ".# .:# .(#");
}

TEST(TextPattern, KeepsCommasBetweenDigitsInTheWord) {
  EXPECT_THAT(Taken("1,200 13,31,48").values, ElementsAre("1,200", "13,31,48"));
  EXPECT_THAT(Taken("1, 2,x y,3 ,4, 5,,6").values, ElementsAre("1", "2", "3", "4", "5", "6"));
  EXPECT_THAT(Taken("a1,2b").values, ElementsAre("a1,2b"));
}

TEST(TextPattern, TakesADateAndATimeForOneWord) {
  for (const std::string date :
       {"2026-01-31 23:59:59", "2026-01-31 23:59:59.123", "2026-01-31 23:59:59,1",
        "2026-01-31 23:59:59Z", "2026-01-31 23:59:59+01", "2026-01-31 23:59:59-0130",
        "2026-01-31 23:59:59.5+01:30", "Jan 31 23:59:59", "Jan  1 23:59:59", "Dec 1 23:59:59",
        "Sat Jan 31 23:59:59", "Sun Feb  1 23:59:59"}) {
    for (const std::string end : {"", ".", ": x", " x", ", x", ")"}) {
      const Taken taken("(at :" + date + end);
      EXPECT_EQ(taken.pattern, "(at :#" + end);
      EXPECT_THAT(taken.values, ElementsAre(date));
    }
  }
}

TEST(TextPattern, TakesWhatOnlyResemblesADateForSeveralWords) {
  EXPECT_THAT(Taken("2026-01-31  23:59:59").values, ElementsAre("2026-01-31", "23:59:59"));
  EXPECT_THAT(Taken("2026-01-31. 23:59:59").values, ElementsAre("2026-01-31", "23:59:59"));
  EXPECT_THAT(Taken("2026-01-31 .23:59:59").values, ElementsAre("2026-01-31", ".23:59:59"));
  EXPECT_THAT(Taken("2026-01-31\n23:59:59").values, ElementsAre("2026-01-31", "23:59:59"));
  EXPECT_THAT(Taken("2026-01-31 23:59:59x").values, ElementsAre("2026-01-31", "23:59:59x"));
  EXPECT_THAT(Taken("2026-01-31 23:59").values, ElementsAre("2026-01-31", "23:59"));
  EXPECT_THAT(Taken("x2026-01-31 23:59:59").values, ElementsAre("x2026-01-31", "23:59:59"));
  EXPECT_THAT(Taken("2026-01-31 23:59:59,1,2").values, ElementsAre("2026-01-31", "23:59:59,1,2"));
  EXPECT_THAT(Taken("Jan  31 23:59:59").values, ElementsAre("31", "23:59:59"));
  EXPECT_THAT(Taken("Jan   1 23:59:59").values, ElementsAre("1", "23:59:59"));
  EXPECT_THAT(Taken("Jan 31 23:59:59.5").values, ElementsAre("31", "23:59:59.5"));
  EXPECT_THAT(Taken("Jan .1 23:59:59").values, ElementsAre(".1", "23:59:59"));
  EXPECT_THAT(Taken("Jan. 1 23:59:59").values, ElementsAre("1", "23:59:59"));
  EXPECT_THAT(Taken("jan 1 23:59:59").values, ElementsAre("1", "23:59:59"));
  EXPECT_THAT(Taken("xJan 1 23:59:59").values, ElementsAre("1", "23:59:59"));
  EXPECT_THAT(Taken("Jan 1").values, ElementsAre("1"));
}

TEST(TextPattern, LeavesAWeekdayOutThatStandsApart) {
  EXPECT_EQ(Taken("Sat  Jan 31 23:59:59").pattern, "Sat  #");
  EXPECT_EQ(Taken("Sat, Jan 31 23:59:59").pattern, "Sat, #");
  EXPECT_EQ(Taken("aSat Jan 31 23:59:59").pattern, "aSat #");
  EXPECT_EQ(Taken("Sat Sat Jan 31 23:59:59 Jan").pattern, "Sat # Jan");
}

TEST(TextPattern, HasNodeForTheOwnName) {
  const Taken taken("cn031 lost cn031: cn031-bmc, root@cn031:/var", "cn031");
  EXPECT_EQ(taken.pattern, "NODE lost NODE: NODE-bmc, root@NODE:/var");
  EXPECT_THAT(taken.values, ElementsAre("NODENODENODENODE"));
}

TEST(TextPattern, HasNoNodeInsideOfOtherNames) {
  EXPECT_EQ(Taken("xcn1 cn12 cn1_ _cn1 1cn1 cn1x", "cn1").pattern, "# # # # # #");
  EXPECT_EQ(Taken("\xC3\xA4"
                  "cn1\xC3\xA4",
                  "cn1")
                .pattern,
            "\xC3\xA4NODE\xC3\xA4");
}

TEST(TextPattern, HasOneNodeForBothFormsAndTellsWhichWasWritten) {
  EXPECT_EQ(Taken("cn1.x.org is down", "cn1.x.org").pattern, "NODE is down");
  EXPECT_EQ(Taken("cn1 is down", "cn1.x.org").pattern, "NODE is down");
  EXPECT_THAT(Taken("cn1.x.org not cn1 or cn1.x", "cn1.x.org").values, ElementsAre("NODEnodenode"));
  EXPECT_EQ(Taken("cn1.x.org not cn1 or cn1.x", "cn1.x.org").pattern, "NODE not NODE or NODE.x");
}

TEST(TextPattern, TakesTheShortFormWhereTheFullOneIsNotOfItsOwn) {
  EXPECT_EQ(Taken("cn1.x.orgs", "cn1.x.org").pattern, "NODE.x.orgs");
}

TEST(TextPattern, LooksForNoNameWithoutALetter) {
  EXPECT_EQ(Taken("10.0.0.7 and 10", "10.0.0.7").pattern, "# and #");
  const Taken taken("10.ib0 and 10", "10.ib0");
  EXPECT_EQ(taken.pattern, "NODE and #");
  EXPECT_THAT(taken.values, ElementsAre("10", "NODE"));
}

TEST(TextPattern, TakesNamesOfAnyCharacters) {
  EXPECT_EQ(Taken("say a b1, or (a b1)", "a b1").pattern, "say NODE, or (NODE)");
  EXPECT_EQ(Taken(".x1 and x1", ".x1").pattern, "NODE and #");
  EXPECT_EQ(Taken("a-a-a-", "a-").pattern, "a-a-NODE");
  EXPECT_EQ(Taken("cn1", "cn1 or longer than the text").pattern, "#");
}

TEST(TextPattern, HasValuesThatHoldNodeBesideAnotherDigit) {
  const Taken taken("cn1-eth0 and 0/cn1.x/cn1/0 and cn1", "cn1.x");
  EXPECT_EQ(taken.pattern, "# and # and NODE");
  EXPECT_THAT(taken.values, ElementsAre("node-eth0", "0/NODE/node/0", "node"));
}

TEST(TextPattern, EndsWordsAtCommasBesideNode) { EXPECT_EQ(Taken("n1,2", "n1").pattern, "NODE,#"); }

TEST(TextPattern, IsNotConfusedByBytesLikeMarks) {
  const Taken taken("\x01\x02\x03\x04\x05 5\x02\x05 cn1\x01", "cn1");
  EXPECT_EQ(taken.pattern, "^#^NODE^node^$^^ # NODE^#");
  EXPECT_THAT(taken.values, ElementsAre("5^NODE^^", "NODE"));
  EXPECT_NE(Taken("NODE is down").pattern + "$", Taken("cn1 is down", "cn1").pattern);
}

TEST(TextPattern, TakesSeveralTextsTogether) {
  TextPattern pattern;
  pattern.read("cn1", {"cn1 5", "", "x cn1-6"});
  EXPECT_EQ(readable(pattern.pattern()), "NODE #$$x #$");
  EXPECT_THAT(original_texts(pattern.pattern(), pattern.values(), "cn1"),
              ElementsAre("cn1 5", "", "x cn1-6"));
}

TEST(TextPattern, AllocatesNothingOnceItHasSeenSuchTexts) {
  TextPattern pattern;
  const auto read = [&pattern] {
    pattern.read("cn00031.x.org", {"fan 3 of cn00031 at 83C, cn00031.x.org:/var is full of core.7",
                                   "Replace fan 3 of cn00031-bmc at 2026-01-31 23:59:59."});
  };
  read();
  const vond::test::FailingAllocation failing(1);
  read();
  EXPECT_FALSE(failing.happened());
}

TEST(TextPattern, TakesLongTexts) {
  std::string text;
  for (int i = 0; i < 10000; ++i) {
    text += "cn1 has " + std::to_string(i) + ", ";
  }
  EXPECT_EQ(Taken(text, "cn1").values.size(), 10001U);
}

}  // namespace
