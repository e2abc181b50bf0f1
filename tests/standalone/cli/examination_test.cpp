// Nodes that were looked at, and those that should have been.
#include <gtest/gtest.h>

#include "tests/standalone/cli/command.h"

namespace vond::test {
namespace {

constexpr char FINDINGS[] =
    "{\"id\": \"a\", \"severity\": 10, \"nodes\": \"n[1-2]\"}\n"
    "{\"id\": \"b\", \"severity\": 10, \"nodes\": [\"n2\", \"n9\"]}\n";

Outcome report(const std::vector<std::string>& arguments, const std::string& more_input = "") {
  Outcome outcome = Command(arguments).input(FINDINGS + more_input).run();
  EXPECT_EQ(outcome.errors, "");
  return outcome;
}

bool holds(const Outcome& outcome, const std::string& text) {
  return outcome.output.find(text) != std::string::npos;
}

TEST(ExaminationTest, WithoutItOnlyNodesWithFindingsAreCounted) {
  const Outcome outcome = report({});
  EXPECT_TRUE(holds(outcome, "  Nodes:    3 seen; which were examined is not known\n"));
  EXPECT_FALSE(holds(outcome, "not examined"));
}

TEST(ExaminationTest, HeaderCountsExaminedNodes) {
  const Outcome outcome = report({"--examined", "n[1-9]", "--examined", "m1,m2,n1"});
  EXPECT_TRUE(holds(outcome, "  Nodes:    11 examined, 3 with issues\n"));
  EXPECT_FALSE(holds(outcome, "not examined"));
  EXPECT_EQ(outcome.status, 0);
}

TEST(ExaminationTest, LinesOfTheInputTellExaminedNodesToo) {
  const std::string lines = "{\"examined\": [\"n[1-8]\", \"n9\"]}\n{\"examined\": \"m[1-2]\"}\n";
  EXPECT_EQ(report({}, lines).output, report({"--examined", "n[1-9],m[1-2]"}).output);
  EXPECT_TRUE(
      holds(report({"--examined", "x"}, lines), "  Nodes:    12 examined, 3 with issues\n"));
  EXPECT_TRUE(holds(report({}, lines), "  Findings read: 2,"));
}

TEST(ExaminationTest, AnEmptyLineOfExaminedNodesTellsThatNoneWas) {
  const Outcome outcome = report({}, "{\"examined\": []}\n");
  EXPECT_TRUE(holds(outcome, "  Nodes:    0 examined, 3 with issues\n"));
  EXPECT_TRUE(holds(outcome, "  3 nodes have findings and were not examined: n[1-2,9]\n"));
}

TEST(ExaminationTest, NodesWithFindingsThatWereNotExaminedAreNamed) {
  const Outcome outcome = report({"--examined", "n9"});
  EXPECT_TRUE(holds(outcome, "  2 nodes have findings and were not examined: n[1-2]\n"));
  EXPECT_EQ(outcome.status, 0);
}

TEST(ExaminationTest, SilenceOfExpectedNodesIsNoHealth) {
  const Outcome outcome = report({"--examined", "n[1-9]", "--expect", "n[8-12]", "--expect", "m1"});
  EXPECT_TRUE(holds(outcome, "  4 of 6 expected nodes were not examined: m1,n[10-12]\n"));
  EXPECT_TRUE(holds(outcome, "  Verdict: UNKNOWN: 4 of 6 expected nodes were not examined\n"));
  EXPECT_TRUE(holds(outcome, "\nEnd of report. Verdict: UNKNOWN\n"));
  EXPECT_EQ(outcome.status, 1);
}

TEST(ExaminationTest, ExpectedNodesThatWereExaminedAreWhatAPassRestsOn) {
  const Outcome outcome = report({"--examined", "n[1-9]", "--expect", "n[1-9]"});
  EXPECT_TRUE(holds(outcome, "  Verdict: PASS, 9 of 9 expected nodes were examined\n"));
  EXPECT_EQ(outcome.status, 0);
}

TEST(ExaminationTest, NodesWithFindingsCountAsSeenWhenNothingTellsWhoWasExamined) {
  const Outcome outcome = report({"--expect", "n[1-2,9]"});
  EXPECT_TRUE(holds(outcome, "  Nodes:    3 seen, 3 expected; which were examined is not known\n"));
  EXPECT_TRUE(holds(
      outcome, "  The input does not tell who was examined; nodes with findings count as seen\n"));
  EXPECT_FALSE(holds(outcome, "silent"));
  EXPECT_EQ(outcome.status, 0);
}

TEST(ExaminationTest, ExaminedNodesThatWereNotExpectedAreNamedAndAreNoDoubt) {
  const Outcome outcome = report({"--examined", "n[1-9],m1", "--expect", "n[1-8]"});
  EXPECT_TRUE(holds(outcome, "  2 nodes were examined and not expected: m1,n9\n"));
  EXPECT_EQ(outcome.status, 0);
}

TEST(ExaminationTest, NodesWithFindingsThatWereNotExpectedAreNamedWhenNothingTellsWhoWasExamined) {
  EXPECT_TRUE(
      holds(report({"--expect", "n[1-2]"}), "  1 node has findings and was not expected: n9\n"));
}

TEST(ExaminationTest, NamesThatMayBeOfOneNodeArePairedAndNotJoined) {
  const Outcome outcome =
      report({"--examined", "n1.cluster.example,N2,n[3-9]", "--expect", "n[01-02],n[3-9]"});
  EXPECT_TRUE(holds(outcome, "  2 of 9 expected nodes were not examined: n[01-02]\n"));
  EXPECT_TRUE(holds(outcome, "  2 nodes were examined and not expected: N2,n1.cluster.example\n"));
  EXPECT_TRUE(holds(
      outcome, "  n01 is expected, n1.cluster.example was examined: the same node? And 1 more"));
  EXPECT_EQ(outcome.status, 1);
}

TEST(ExaminationTest, NothingThatWasLookedAtIsNoPass) {
  const Outcome outcome = Command({}).run();
  EXPECT_TRUE(holds(outcome, "Cluster health report: UNKNOWN\n"));
  EXPECT_TRUE(holds(outcome, "  Verdict: UNKNOWN: nothing was looked at\n"));
  EXPECT_EQ(outcome.status, 1);
}

TEST(ExaminationTest, AFailingReportKeepsItsDoubts) {
  const Outcome outcome = report({"--expect", "m1", "-t", "0", "-w", "0"});
  EXPECT_TRUE(holds(outcome, "Cluster health report: FAIL\n"));
  EXPECT_TRUE(holds(outcome, " issues, 1 of 1 expected node is silent\n"));
  EXPECT_EQ(outcome.status, 1);
}

TEST(ExaminationTest, FindingsThatNameNoDefinitionAreCounted) {
  EXPECT_TRUE(holds(report({}, "{\"id\": \"c\", \"severity\": 1, \"definitions\": [\"d\"]}\n"),
                    "  Failing definitions: none; 2 findings name no definition\n"));
}

TEST(ExaminationTest, ExpectedNodesAreSilentWhenNothingTellsThatTheyWereExamined) {
  const Outcome outcome = report({"--expect", "m1"});
  EXPECT_TRUE(holds(outcome, "  1 of 1 expected node is silent: m1\n"));
  EXPECT_EQ(outcome.status, 1);
}

}  // namespace
}  // namespace vond::test
