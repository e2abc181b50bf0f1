// What the word is that everything else goes by, and what stands behind it.
#include "standalone/facts/verdict.h"

#include <gtest/gtest.h>

namespace vond::standalone {
namespace {

using Doubts = std::vector<std::string>;

ReportFacts facts_of_healthy_cluster() {
  ReportFacts facts;
  facts.inputs = {{"a.jsonl", {}, false}};
  facts.findings_read = 3;
  return facts;
}

TEST(Verdict, PassesWhenNothingFailsAndNothingIsInDoubt) {
  EXPECT_EQ(verdict_of(facts_of_healthy_cluster()), Verdict::PASS);
  EXPECT_EQ(verdict_doubts(facts_of_healthy_cluster()), Doubts());
}

TEST(Verdict, HasOneWordForEach) {
  EXPECT_EQ(verdict_word(Verdict::PASS), "PASS");
  EXPECT_EQ(verdict_word(Verdict::FAIL), "FAIL");
  EXPECT_EQ(verdict_word(Verdict::UNKNOWN), "UNKNOWN");
}

TEST(Verdict, IsUnknownWhenNothingWasLookedAt) {
  EXPECT_EQ(verdict_of({}), Verdict::UNKNOWN);
  EXPECT_EQ(verdict_doubts({}), Doubts{"nothing was looked at"});
}

TEST(Verdict, PassesWhenNodesWereExaminedAndNothingWasFound) {
  ReportFacts facts;
  facts.examination = {48, {}};
  EXPECT_EQ(verdict_of(facts), Verdict::PASS);
}

TEST(Verdict, IsUnknownWhenTheListOfExaminedNodesIsEmptyToo) {
  ReportFacts facts;
  facts.examination = {0, {}};
  EXPECT_EQ(verdict_doubts(facts), Doubts{"nothing was looked at"});
}

TEST(Verdict, IsUnknownWhenAnExpectedNodeWasNotExamined) {
  ReportFacts facts = facts_of_healthy_cluster();
  facts.examination = {47, {}};
  facts.expectation = {48, {"n1"}, {}, {}};
  EXPECT_EQ(verdict_of(facts), Verdict::UNKNOWN);
  EXPECT_EQ(verdict_doubts(facts), Doubts{"1 of 48 expected nodes was not examined"});
  facts.expectation->silent = {"n1", "n2"};
  EXPECT_EQ(verdict_doubts(facts), Doubts{"2 of 48 expected nodes were not examined"});
}

TEST(Verdict, SaysOnlyOfSilentNodesThatTheyAreSilentWhenNobodyToldWhoWasExamined) {
  ReportFacts facts = facts_of_healthy_cluster();
  facts.expectation = {48, {"n1"}, {}, {}};
  EXPECT_EQ(verdict_doubts(facts), Doubts{"1 of 48 expected nodes is silent"});
  facts.expectation->silent = {"n1", "n2"};
  EXPECT_EQ(verdict_doubts(facts), Doubts{"2 of 48 expected nodes are silent"});
}

TEST(Verdict, TellsOnceThatNothingWasLookedAtWhenThatIsWhyNodesWereNotExamined) {
  ReportFacts facts;
  facts.expectation = {2, {"n1", "n2"}, {}, {}};
  EXPECT_EQ(verdict_doubts(facts), Doubts{"2 of 2 expected nodes were not examined"});
}

TEST(Verdict, IsUnknownWhenLinesWereLeftOut) {
  ReportFacts facts = facts_of_healthy_cluster();
  facts.lines_rejected = 1;
  EXPECT_EQ(verdict_of(facts), Verdict::UNKNOWN);
  EXPECT_EQ(verdict_doubts(facts), Doubts{"1 line of input was left out"});
  facts.lines_rejected = 7;
  EXPECT_EQ(verdict_doubts(facts), Doubts{"7 lines of input were left out"});
}

TEST(Verdict, IsUnknownWhenOneOfSeveralInputsGaveNothing) {
  ReportFacts facts = facts_of_healthy_cluster();
  facts.inputs.push_back({"b.jsonl", {}, true});
  EXPECT_EQ(verdict_of(facts), Verdict::UNKNOWN);
  EXPECT_EQ(verdict_doubts(facts), Doubts{"no line of b.jsonl could be used"});
  facts.inputs.push_back({"c.jsonl", {}, true});
  EXPECT_EQ(verdict_doubts(facts), Doubts{"no line of 2 inputs could be used"});
}

TEST(Verdict, HasOtherDoubtsWhenTheOnlyInputGaveNothing) {
  ReportFacts facts;
  facts.inputs = {{"a.jsonl", {}, true}};
  facts.lines_rejected = 2;
  EXPECT_EQ(verdict_doubts(facts),
            (Doubts{"nothing was looked at", "2 lines of input were left out"}));
}

TEST(Verdict, FailsInSpiteOfDoubtsAndKeepsThem) {
  ReportFacts facts;
  facts.failed = true;
  facts.lines_rejected = 2;
  EXPECT_EQ(verdict_of(facts), Verdict::FAIL);
  EXPECT_EQ(verdict_doubts(facts).size(), 2U);
}

TEST(Verdict, DoesNotGoByAgeNorByNodesThatWereNotExpected) {
  ReportFacts facts = facts_of_healthy_cluster();
  facts.inputs.front().age = 1'000'000;
  facts.examination = {48, {"n9"}};
  facts.expectation = {48, {}, {"n9"}, {{"n1", "n01"}}};
  EXPECT_EQ(verdict_of(facts), Verdict::PASS);
}

TEST(Verdict, FindingsThatAreAllAcknowledgedAreNoLook) {
  ReportFacts facts;
  facts.findings_read = 2;
  facts.findings_acknowledged = 1;
  EXPECT_EQ(verdict_of(facts), Verdict::PASS);
  facts.findings_acknowledged = 2;
  EXPECT_EQ(verdict_doubts(facts), Doubts{"nothing was looked at"});
}

}  // namespace
}  // namespace vond::standalone
