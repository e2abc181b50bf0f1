#include <gtest/gtest.h>

#include "tests/standalone/libvond_host/report_blocks.h"

namespace vond::test {
namespace {

class Validation : public ReportBlocks {
 protected:
  Validation() { facts.findings_read = 7; }

  /// Returns the lines between the first two and the empty one at the end.
  std::string doubts() const {
    const std::string text = validation();
    const std::size_t begin = text.find('\n', text.find('\n') + 1) + 1;
    return text.substr(begin, text.size() - 1 - begin);
  }
};

TEST_F(Validation, TellsWhatWasReadWhenNothingIsInDoubt) {
  EXPECT_EQ(validation(),
            "Validation\n"
            "  Findings read: 7, no line left out, every name known\n"
            "\n");
}

TEST_F(Validation, SaysNothingOfNamesWhenNoFindingWasRead) {
  facts.findings_read = 0;
  EXPECT_EQ(validation(), "Validation\n  Findings read: 0, no line left out\n\n");
}

TEST_F(Validation, ShowsTheFirstFiveRejectedLinesAndCountsTheOthers) {
  facts.lines_rejected = 12;
  for (int line = 1; line <= 10; ++line) {
    facts.first_rejections.push_back("f:" + std::to_string(line) + ":1: bad");
  }
  EXPECT_EQ(validation(),
            "Validation\n"
            "  Findings read: 7, every name known\n"
            "  12 lines of input were left out:\n"
            "    f:1:1: bad\n"
            "    f:2:1: bad\n"
            "    f:3:1: bad\n"
            "    f:4:1: bad\n"
            "    f:5:1: bad\n"
            "    and 7 more\n"
            "\n");
}

TEST_F(Validation, CutsAMessageThatTakesMoreThanTwoLines) {
  facts.lines_rejected = 1;
  facts.first_rejections = {"f:1:1: " + std::string(20, 'a') + " " + std::string(300, 'b')};
  set_width(40);
  EXPECT_EQ(doubts(), "  1 line of input was left out:\n    f:1:1: " + std::string(20, 'a') +
                          "\n      " + std::string(31, 'b') + "...\n");
}

TEST_F(Validation, ShowsWarningsToo) {
  facts.warnings = {"f:6:87: unknown key \"sensor\" is ignored (once)"};
  EXPECT_EQ(doubts(),
            "  1 warning:\n"
            "    f:6:87: unknown key \"sensor\" is ignored (once)\n");
  facts.warnings = numbered("warning", 7);
  EXPECT_NE(doubts().find("  7 warnings:\n    warning0001\n"), std::string::npos);
  EXPECT_NE(doubts().find("    warning0005\n    and 2 more\n"), std::string::npos);
}

TEST_F(Validation, ListsNamesThatNobodyKnows) {
  facts.unknown_definitions = {"fabric/links", "storage"};
  facts.unknown_based_on = {"link-down"};
  EXPECT_EQ(validation(),
            "Validation\n"
            "  Findings read: 7, no line left out\n"
            "  2 names that findings use are no definitions: fabric/links, storage\n"
            "  1 id that findings are based on was not reported: link-down\n"
            "\n");
}

TEST_F(Validation, TellsInputsThatGaveNothing) {
  facts.inputs = {{"a", {}, true}, {"b", {}, false}, {"c", {}, true}};
  EXPECT_EQ(doubts(), "  2 inputs without a line that could be used: a, c\n");
}

TEST_F(Validation, TellsAgesOfMoreThanADayAndOfTheFuture) {
  facts.inputs = {{"day", 86400, false},
                  {"older", 86401, false},
                  {"old", 1'000'000, false},
                  {"future", -61, false},
                  {"pipe", {}, false}};
  EXPECT_EQ(doubts(),
            "  2 inputs are older than a day: older, 1 day old; old, 11 days old\n"
            "  1 input is from the future: future, 1 minute in the future\n");
}

TEST_F(Validation, TellsWhichPartsOfAnInputAreOldAndWhichAreFromTheFuture) {
  facts.inputs = {{.name = "racks",
                   .age = 604'800,
                   .parts = {{{"rack01"}, 120},
                             {{"rack03", "rack02"}, 604'800},
                             {{}, 172'800},
                             {{"rack07"}, -120},
                             {{"rack08"}, 86'400}}},
                  {.name = "raw", .age = 86'401}};
  EXPECT_EQ(doubts(),
            "  1 input is older than a day: raw, 1 day old\n"
            "  2 parts are older than a day: rack[02-03], 7 days old; a part of racks, 2 days old\n"
            "  1 part is from the future: rack07, 2 minutes in the future\n");
}

TEST_F(Validation, DoesNotTellThatClocksDifferByNoMoreThanAMinute) {
  facts.inputs = {{.name = "racks", .parts = {{{"rack01"}, -60}, {{"rack02"}, -1}}},
                  {.name = "raw", .age = -60}};
  EXPECT_EQ(doubts(), "");
}

TEST_F(Validation, TellsAnInputOfOnePartByItsOwnName) {
  facts.inputs = {{.name = "rack07.jsonl", .age = 604'800, .parts = {{{"rack07"}, 604'800}}}};
  EXPECT_EQ(doubts(), "  1 input is older than a day: rack07.jsonl, 7 days old\n");
}

TEST_F(Validation, ListsNodesWithFindingsThatWereNotExamined) {
  facts.examination = {12, {"login1", "n001", "n002"}};
  EXPECT_EQ(doubts(), "  3 nodes have findings and were not examined: login1,n[001-002]\n");
}

TEST_F(Validation, HoldsExpectedAgainstExaminedNodes) {
  facts.examination = {12, {}};
  facts.expectation = {48, {"n1", "n2"}, {"x1"}, {{"n1", "n01"}}};
  EXPECT_EQ(doubts(),
            "  2 of 48 expected nodes were not examined: n[1-2]\n"
            "  1 node was examined and not expected: x1\n"
            "  n1 is expected, n01 was examined: the same node?\n");
}

TEST_F(Validation, SaysThatTheInputDoesNotTellWhoWasExamined) {
  facts.expectation = {48, {"n1"}, {"x1", "x2"}, {{"n1", "n01"}, {"n2", "n02"}, {"n3", "n03"}}};
  EXPECT_EQ(doubts(),
            "  The input does not tell who was examined; nodes with findings count as seen\n"
            "  1 of 48 expected nodes is silent: n1\n"
            "  2 nodes have findings and were not expected: x[1-2]\n"
            "  n1 is expected, n01 has findings: the same node? And 2 more such pairs\n");
}

TEST_F(Validation, CountsChecksWithoutDataOfAllBandsAndTheirNodes) {
  add_issue(data, 26, make_issue({.id = "a", .nodes = {"n1", "n2"}}));
  add_issue(data, 6, make_issue({.id = "b", .nodes = {"n2", "n3"}}));
  EXPECT_EQ(doubts(), "  Checks without data: 2 on 3 nodes: n[1-3]\n");
}

TEST_F(Validation, CountsChecksWithoutDataThatNameNoNode) {
  add_issue(data, 2, make_issue({.id = "a"}));
  EXPECT_EQ(doubts(), "  Checks without data: 1\n");
}

TEST_F(Validation, ShowsDoubtsAloneInYellow) {
  facts.unknown_definitions = {"a"};
  add_issue(data, 2, make_issue({.id = "a"}));
  EXPECT_EQ(validation(true),
            "Validation\n"
            "  Findings read: 7, no line left out\n"
            "\x1B[0;33m  1 name that findings use is no definition: a\x1B[0m\n"
            "  Checks without data: 1\n"
            "\n");
}

}  // namespace
}  // namespace vond::test
