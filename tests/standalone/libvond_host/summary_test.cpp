// Verdict, bands and definitions that fail, in the summary and once more at the end.
#include <gtest/gtest.h>

#include "tests/standalone/libvond_host/report_blocks.h"

namespace vond::test {
namespace {

class Summary : public ReportBlocks {
 protected:
  Summary() { facts.findings_read = 7; }
  ~Summary() override { forget_relations(related_); }

  void explain(const Issue& diagnosis, const Issue& observation) {
    relate(diagnosis, observation);
    related_.push_back(diagnosis);
    related_.push_back(observation);
  }

  std::string verdict() const {
    const std::string text = summary();
    const std::size_t begin = text.find('\n') + 1;
    return text.substr(begin, text.find('\n', begin) - begin);
  }

  /// Returns the lines from the first band to the definitions that fail.
  std::string bands() const {
    const std::string text = summary();
    const std::size_t name = text.find("CRITICAL: ");
    const std::size_t begin = text.rfind('\n', name) + 1;
    return text.substr(begin, text.find("  Failing definitions") - begin);
  }

 private:
  std::vector<Issue> related_;
};

using End = Summary;

TEST_F(Summary, OfACleanClusterIsShort) {
  EXPECT_EQ(summary(),
            "Summary\n"
            "  Verdict: PASS\n"
            "  CRITICAL: none\n"
            "  WARNING: none\n"
            "  INFORMATIONAL: none\n"
            "  Failing definitions: none\n" +
                RULE);
}

TEST_F(Summary, TellsVerdictNodesCausesAndDefinitions) {
  const Issue diagnosis =
      add_failing_issue({.id = "switch#s1", .message = "hot", .nodes = {"s1"}}, 24);
  const Issue explained = add_failing_issue({.id = "link", .nodes = {"n1", "n2"}}, 25);
  add_failing_issue({.id = "down", .message = "No\nanswer.", .nodes = {"n9"}}, 25);
  add_failing_issue({.id = "checks", .message = "Unreachable.", .nodes = {"n9"}}, 26);
  explain(diagnosis, explained);
  add_issue(data, 0, make_issue({.id = "old"}));
  data.fwd_root->roots = {make_definition({.name = "a", .passed = false})};
  EXPECT_EQ(summary(),
            "Summary\n"
            "  Verdict: FAIL, 4 nodes with CRITICAL issues\n"
            "    n[1-2,9],s1\n"
            "  nodes  CRITICAL: 1 diagnosis, 2 observations (1 explained), 1 without data\n"
            "      1  switch#s1  explains 1 observation on 2 nodes\n"
            "      1  down       No answer.\n"
            "      1  checks     no data: Unreachable.\n"
            "  WARNING: none\n"
            "  nodes  INFORMATIONAL: 1 diagnosis\n"
            "      0  old\n"
            "  Failing definitions: a\n" +
                RULE);
}

TEST_F(Summary, ShowsBesideTheVerdictWhatPutsItInDoubt) {
  facts.lines_rejected = 7;
  EXPECT_EQ(verdict(), "  Verdict: UNKNOWN: 7 lines of input were left out");
  facts.expectation = {2, {"a"}, {}, {}};
  EXPECT_EQ(verdict(),
            "  Verdict: UNKNOWN: 1 of 2 expected nodes is silent, 7 lines of input were left out");
  add_failing_issue({.id = "id", .nodes = {"n1"}});
  EXPECT_EQ(
      verdict(),
      "  Verdict: FAIL, 1 node with CRITICAL issues, 1 of 2 expected nodes is silent, 7 lines "
      "of input were left out");
}

TEST_F(Summary, GoesOnWithReasonsBehindTheVerdictsLabelSoThatTheyDoNotRunIntoTheNodes) {
  set_width(60);
  facts.expectation = {2, {"a"}, {}, {}};
  add_failing_issue({.id = "id", .nodes = {"n1"}});
  EXPECT_NE(summary().find("  Verdict: FAIL, 1 node with CRITICAL issues, 1 of 2\n"
                           "           expected nodes is silent\n"
                           "    n1\n"),
            std::string::npos)
      << summary();
}

TEST_F(Summary, ShowsBesideAPassWhatItRestsOn) {
  facts.examination = {66, {}};
  EXPECT_EQ(verdict(), "  Verdict: PASS, 66 nodes were examined");
  facts.expectation = {48, {}, {}, {}};
  EXPECT_EQ(verdict(), "  Verdict: PASS, 48 of 48 expected nodes were examined");
  facts.expectation = {1, {}, {}, {}};
  EXPECT_EQ(verdict(), "  Verdict: PASS, 1 of 1 expected node was examined");
}

TEST_F(Summary, CountsTheNodesOfEveryBandThatFailsAndNamesThoseOfTheWorst) {
  data.fail_threshold = 25;
  add_failing_issue({.id = "a", .nodes = {"n1"}}, 24);
  add_failing_issue({.id = "b", .nodes = {"n2", "n3"}}, 20);
  EXPECT_EQ(verdict(), "  Verdict: FAIL, 1 node with CRITICAL issues, 2 nodes with WARNING issues");
  EXPECT_NE(summary().find(" issues\n    n1\n  nodes  CRITICAL"), std::string::npos);
}

TEST_F(Summary, SaysOfAFailureWithoutNodesThatItHasNone) {
  add_failing_issue({.id = "a"});
  EXPECT_EQ(verdict(), "  Verdict: FAIL, CRITICAL issues that name no node");
}

TEST_F(Summary, ShowsFiveLinesAndNoneIsLeftOver) {
  for (const char* id : {"a", "b", "c", "d", "e"}) {
    add_failing_issue({.id = id, .message = "m"});
  }
  EXPECT_EQ(bands(),
            "  nodes  CRITICAL: 5 diagnoses\n"
            "      0  a  m\n"
            "      0  b  m\n"
            "      0  c  m\n"
            "      0  d  m\n"
            "      0  e  m\n"
            "  WARNING: none\n"
            "  INFORMATIONAL: none\n");
}

TEST_F(Summary, KeepsALineForEveryKindAndTheLastForTheRest) {
  for (const unsigned mask : {24U, 25U, 26U}) {
    add_issues(data, mask, std::string(1, static_cast<char>('a' + mask - 24U)), 4);
  }
  facts.failed = true;
  EXPECT_EQ(bands(),
            "  nodes  CRITICAL: 4 diagnoses, 4 observations, 4 without data\n"
            "      0  a1\n"
            "      0  a2\n"
            "      0  b1\n"
            "      0  c1  no data\n"
            "         and 2 diagnoses, 3 observations, 3 without data\n"
            "  WARNING: none\n"
            "  INFORMATIONAL: none\n");
}

TEST_F(Summary, SaysThatNothingExplainsTheRestWhereSomethingIsExplained) {
  add_issues(data, 25, "o", 7);
  EXPECT_NE(bands().find("         and 3 observations\n"), std::string::npos) << bands();
  explain(add_failing_issue({.id = "d"}), add_failing_issue({.id = "p"}, 25));
  EXPECT_NE(bands().find("         and 4 observations that nothing explains\n"), std::string::npos)
      << bands();
}

TEST_F(Summary, GivesLinesThatOneKindDoesNotNeedToTheNext) {
  add_issues(data, 24, "a", 1);
  add_issues(data, 26, "c", 9);
  EXPECT_EQ(bands(),
            "  nodes  CRITICAL: 1 diagnosis, 9 without data\n"
            "      0  a1\n"
            "      0  c1  no data\n"
            "      0  c2  no data\n"
            "      0  c3  no data\n"
            "         and 6 without data\n"
            "  WARNING: none\n"
            "  INFORMATIONAL: none\n");
}

TEST_F(Summary, ShowsLinesOfOneBandBelowThoseThatFail) {
  add_issues(data, 4, "w", 1);
  add_issues(data, 0, "i", 1);
  EXPECT_EQ(bands(),
            "  CRITICAL: none\n"
            "  nodes  WARNING: 1 diagnosis\n"
            "      0  w1\n"
            "  INFORMATIONAL: 1 diagnosis\n");
}

TEST_F(Summary, ShowsIssuesOfOneIdAsOneLine) {
  add_failing_issue({.id = "a", .message = "first", .nodes = {"n1", "n2"}}, 25);
  add_failing_issue({.id = "b", .message = "other", .nodes = {"n1"}}, 25);
  add_failing_issue({.id = "a", .message = "second", .nodes = {"n2", "n3"}}, 25);
  add_failing_issue({.id = "a", .message = "first", .nodes = {"n4"}}, 25);
  EXPECT_EQ(bands(),
            "  nodes  CRITICAL: 4 observations\n"
            "      4  a  2 wordings: first\n"
            "      1  b  other\n"
            "  WARNING: none\n"
            "  INFORMATIONAL: none\n");
}

TEST_F(Summary, CountsWhatDiagnosesOfOneIdExplainOnce) {
  const Issue observation = make_issue({.id = "o", .nodes = {"n1", "n2"}});
  add_issue(data, 5, observation);
  for (const char* message : {"first", "second"}) {
    explain(add_failing_issue({.id = "d", .message = message}), observation);
  }
  EXPECT_EQ(bands(),
            "  nodes  CRITICAL: 2 diagnoses\n"
            "      0  d  2 wordings: explains 1 observation on 2 nodes\n"
            "  WARNING: 1 observation (1 explained)\n"
            "  INFORMATIONAL: none\n")
      << "what is explained has no line of its own";
}

TEST_F(Summary, LinesUpColumnsAndCutsTextsByGraphemeClusters) {
  set_width(60);
  add_failing_issue({.id = "日本", .message = "語語語語語語語語語語語語語語語語語語語語語語語語"});
  add_failing_issue({.id = "abcdef", .message = std::string(100, 'x')});
  EXPECT_EQ(bands(),
            "  nodes  CRITICAL: 2 diagnoses\n"
            "      0  日本    語語語語語語語語語語語語語語語語語語語語...\n"
            "      0  abcdef  " +
                std::string(40, 'x') +
                "...\n"
                "  WARNING: none\n"
                "  INFORMATIONAL: none\n");
}

TEST_F(Summary, LeavesTextsOutWhereIdsNeedTheRoom) {
  set_width(40);
  add_failing_issue({.id = std::string(50, 'i'), .message = "m"});
  EXPECT_NE(bands().find("      0  " + std::string(28, 'i') + "...\n"), std::string::npos)
      << bands();
}

TEST_F(Summary, CutsTextsAt160ColumnsWithoutWrapping) {
  add_failing_issue({.id = "a", .message = std::string(500, 'x')});
  EXPECT_NE(bands().find("      0  a  " + std::string(145, 'x') + "...\n"), std::string::npos)
      << bands();
}

TEST_F(Summary, ReadsIssuesThatTheHostLeftEmpty) {
  add_issue(data, 24, make_issue_without_outputs());
  EXPECT_NE(bands().find("      0\n"), std::string::npos) << bands();
}

TEST_F(Summary, ReadsTheBandsThatTheThresholdChooses) {
  data.fail_threshold = 25;
  add_issues(data, 20, "d", 1);
  add_issues(data, 1, "o", 1);
  EXPECT_EQ(bands(),
            "  CRITICAL: none\n"
            "  nodes  WARNING: 1 diagnosis\n"
            "      0  d1\n"
            "  nodes  INFORMATIONAL: 1 observation\n"
            "      0  o1\n");
}

TEST_F(Summary, NamesTheDefinitionsThatFailBelowTheirRootsInTheOrderOfTheTree) {
  const auto failing = [](const std::string& name, bool skipped = false) {
    return make_definition({.name = name, .passed = false, .skipped = skipped});
  };
  data.fwd_root->roots = {
      make_definition({.name = "z", .passed = false},
                      {{failing("z/b"), make_definition({.name = "z/a"})}, {}, {failing("zc")}}),
      make_definition({.name = "skipped", .passed = false, .skipped = true},
                      {{failing("skipped/below"), failing("skipped/too", true)}}),
      make_definition({.name = "passed"}),
      failing("a"),
  };
  EXPECT_NE(summary().find("  Failing definitions: z (b, zc), skipped/below, a\n"),
            std::string::npos)
      << summary();
}

TEST_F(Summary, CountsTheDefinitionsThatDoNotFit) {
  set_width(40);
  std::vector<Node> children;
  for (const std::string& name : numbered("root/child", 30)) {
    children.push_back(make_definition({.name = name, .passed = false}));
  }
  data.fwd_root->roots = {make_definition({.name = "root", .passed = false}, {children})};
  EXPECT_NE(summary().find("  Failing definitions: root (child0001,\n"
                           "    child0002, child0003) and 27 more\n"),
            std::string::npos)
      << summary();
}

TEST_F(Summary, TellsFindingsThatNameNoDefinition) {
  facts.findings_without_definition = 1;
  EXPECT_NE(summary().find("  Failing definitions: none; 1 finding names no definition\n"),
            std::string::npos);
  facts.findings_without_definition = 12;
  data.fwd_root->roots = {make_definition({.name = "a", .passed = false})};
  EXPECT_NE(summary().find("  Failing definitions: a\n  12 findings name no definition\n"),
            std::string::npos);
}

TEST_F(Summary, ShowsTheVerdictInItsColorAndWhatFailsInRed) {
  EXPECT_NE(summary(true).find("\x1B[0;32m  Verdict: PASS\x1B[0m\n"), std::string::npos);
  facts.lines_rejected = 1;
  EXPECT_NE(summary(true).find("\x1B[0;33m  Verdict: UNKNOWN: 1 line of input was left out\x1B[0m"),
            std::string::npos);
  add_failing_issue({.id = "id"});
  data.fwd_root->roots = {make_definition({.name = "a", .passed = false})};
  EXPECT_EQ(
      summary(true),
      "Summary\n"
      "\x1B[0;31m  Verdict: FAIL, CRITICAL issues that name no node, 1 line of input was left "
      "out\x1B[0m\n"
      "\x1B[0;31m  nodes  CRITICAL: 1 diagnosis\x1B[0m\n"
      "      0  id\n"
      "  WARNING: none\n"
      "  INFORMATIONAL: none\n"
      "\x1B[0;31m  Failing definitions: a\x1B[0m\n" +
          RULE);
}

TEST_F(Summary, ReadsARecordThatHasNoIndexAndNoTree) {
  data.issues_by_mask = nullptr;
  data.fwd_root = nullptr;
  data.counts_by_mask.clear();
  EXPECT_EQ(verdict(), "  Verdict: PASS");
}

// ---- End ---------------------------------------------------------------------------------------

TEST_F(End, OfAPassIsItsLastLine) {
  EXPECT_EQ(end(true), RULE + "\x1B[0;32mEnd of report. Verdict: PASS\x1B[0m\n");
}

TEST_F(End, RepeatsWhyTheVerdictIsUnknown) {
  facts.lines_rejected = 3;
  EXPECT_EQ(end(), RULE +
                       "  Verdict: UNKNOWN: 3 lines of input were left out\n"
                       "End of report. Verdict: UNKNOWN\n");
}

TEST_F(End, RepeatsVerdictNodesAndTheWorstBandThatFails) {
  data.fail_threshold = 25;
  add_failing_issue({.id = "a", .message = "m", .nodes = {"n1"}}, 24);
  add_failing_issue({.id = "b", .nodes = {"n2"}}, 20);
  EXPECT_EQ(end(), RULE +
                       "  Verdict: FAIL, 1 node with CRITICAL issues, 1 node with WARNING issues\n"
                       "    n1\n"
                       "  nodes  CRITICAL: 1 diagnosis\n"
                       "      1  a  m\n"
                       "End of report. Verdict: FAIL\n");
}

TEST_F(End, HasItsLastLineWholeAtAnyWidth) {
  add_failing_issue({.id = "a"});
  for (int width = 0; width <= 200; ++width) {
    set_width(width);
    EXPECT_TRUE(end().ends_with("\nEnd of report. Verdict: FAIL\n")) << "width " << width;
  }
}

}  // namespace
}  // namespace vond::test
