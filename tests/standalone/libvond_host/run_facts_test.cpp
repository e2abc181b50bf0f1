#include "vond/facts/run_facts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "standalone/libvond_host/current_facts.h"
#include "standalone/libvond_host/issue_facts.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::standalone::IssueFacts;
using vond::standalone::IssueFactsConnection;
using vond::standalone::report_facts;
using vond::standalone::ReportFacts;

namespace facts = vond::facts;

class RunFactsTest : public testing::Test {
 protected:
  void TearDown() override { report_facts() = {}; }
};

TEST_F(RunFactsTest, HaveTheVersionOfTheHeader) {
  EXPECT_EQ(facts::version(), VOND_FACTS_VERSION);
  EXPECT_EQ(facts::tool_version(), VOND_VERSION);
}

TEST_F(RunFactsTest, TellWhatIsKnownOfTheReport) {
  report_facts().written_at = 1763699400;
  report_facts().inputs = {{"a.jsonl", 120, false}, {"standard input", {}, false}};
  report_facts().findings_read = 3;
  report_facts().nodes_seen = 4;
  EXPECT_EQ(facts::written_at(), 1763699400);
  EXPECT_EQ(facts::nodes_seen(), 4U);
  ASSERT_EQ(facts::inputs().size(), 2U);
  EXPECT_EQ(facts::inputs()[0].name, "a.jsonl");
  EXPECT_EQ(facts::inputs()[0].age_seconds, 120);
  EXPECT_EQ(facts::inputs()[1].age_seconds, std::nullopt);
  EXPECT_EQ(facts::verdict(), "PASS");
  EXPECT_THAT(facts::doubts(), IsEmpty());
}

TEST_F(RunFactsTest, WhatNobodyToldIsNotKnown) {
  EXPECT_EQ(facts::nodes_examined(), std::nullopt);
  EXPECT_EQ(facts::nodes_expected(), std::nullopt);
  EXPECT_THAT(facts::nodes_not_examined(), IsEmpty());
  EXPECT_THAT(facts::nodes_not_expected(), IsEmpty());
  EXPECT_EQ(facts::verdict(), "UNKNOWN");
}

TEST_F(RunFactsTest, TellTheRacksInTheirOrder) {
  EXPECT_THAT(facts::racks(), IsEmpty());
  report_facts().racks = {{"r2", {"n3"}}, {"r1", {"n1", "n2"}}};
  const auto racks = facts::racks();
  ASSERT_EQ(racks.size(), 2U);
  EXPECT_EQ(racks[0].name, "r2");
  EXPECT_EQ(racks[1].name, "r1");
  EXPECT_THAT(racks[1].nodes, ElementsAre("n1", "n2"));
}

TEST_F(RunFactsTest, TellWhatIsAcknowledged) {
  using State = ReportFacts::Acknowledgement::State;
  EXPECT_THAT(facts::acknowledgements(), IsEmpty());
  EXPECT_EQ(facts::issues_acknowledged(), std::nullopt);
  EXPECT_THAT(facts::acknowledged_nodes(), IsEmpty());
  report_facts().acknowledged = ReportFacts::Acknowledged{
      .issues = 7,
      .nodes = {"n1", "n2"},
      .entries = {{"a#1", {"n1", "n2"}, 1763699400, "RMA", "mh", State::ACTIVE, false},
                  {"b", {}, 0, "r", "", State::EXPIRED, true},
                  {"c", {}, 0, "r", "", State::UNUSED, false}}};
  EXPECT_EQ(facts::issues_acknowledged(), 7U);
  EXPECT_THAT(facts::acknowledged_nodes(), ElementsAre("n1", "n2"));
  const auto entries = facts::acknowledgements();
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].id, "a#1");
  EXPECT_THAT(entries[0].nodes, ElementsAre("n1", "n2"));
  EXPECT_EQ(entries[0].until, 1763699400);
  EXPECT_EQ(entries[0].reason, "RMA");
  EXPECT_EQ(entries[0].by, "mh");
  EXPECT_EQ(entries[0].state, "active");
  EXPECT_EQ(entries[1].state, "expired");
  EXPECT_EQ(entries[2].state, "unused");
}

TEST_F(RunFactsTest, WhatIsIgnoredIsNotAcknowledged) {
  report_facts().acknowledged = ReportFacts::Acknowledged{.is_ignored = true};
  EXPECT_EQ(facts::issues_acknowledged(), std::nullopt);
}

TEST_F(RunFactsTest, TellWhoWasLookedAt) {
  report_facts().examination = {.nodes_examined = 5, .not_examined_with_findings = {}};
  report_facts().expectation = {
      .nodes_expected = 7, .silent = {"cn1", "cn2"}, .not_expected = {"cn9"}, .alike = {}};
  EXPECT_EQ(facts::nodes_examined(), 5U);
  EXPECT_EQ(facts::nodes_expected(), 7U);
  EXPECT_THAT(facts::nodes_not_examined(), ElementsAre("cn1", "cn2"));
  EXPECT_THAT(facts::nodes_not_expected(), ElementsAre("cn9"));
  EXPECT_EQ(facts::verdict(), "UNKNOWN");
  EXPECT_THAT(facts::doubts(), ElementsAre("2 of 7 expected nodes were not examined"));
}

struct SeverityIs42 : IssueFacts {
  int severity(const CollapsedAnalysisOutput& /*issue*/) const override { return 42; }
  facts::Patterns patterns(const CollapsedAnalysisOutput& /*issue*/) const override {
    return {"at <*>", "wait"};
  }
  std::vector<facts::Place> places(const CollapsedAnalysisOutput& /*issue*/) override {
    return {{"number", "C", {{"5C", {"cn1"}}}}};
  }
  std::optional<facts::Change> change(const CollapsedAnalysisOutput& /*issue*/) const override {
    return facts::Change{"worse", {"cn1"}, {"cn2"}};
  }
  std::optional<std::int64_t> first_seen(const CollapsedAnalysisOutput& /*issue*/) const override {
    return 1763699400;
  }
  std::optional<facts::Since> since() const override {
    facts::Since since;
    since.worse = 1;
    return since;
  }
  void for_each_finding(const std::function<void(const facts::Finding&)>& visit) const override {
    facts::Finding finding;
    finding.count = 3;
    visit(finding);
  }
};

TEST_F(RunFactsTest, OfIssuesAreThoseOfTheReportInHand) {
  const CollapsedAnalysisOutput issue;
  {
    SeverityIs42 issues;
    const IssueFactsConnection connection(issues);
    EXPECT_EQ(facts::severity(issue), 42);
    EXPECT_EQ(facts::patterns(issue).message, "at <*>");
    ASSERT_EQ(facts::places(issue).size(), 1U);
    EXPECT_EQ(facts::places(issue)[0].unit, "C");
    EXPECT_THAT(facts::change(issue)->nodes_added, ElementsAre("cn1"));
    EXPECT_EQ(facts::first_seen(issue), 1763699400);
    EXPECT_EQ(facts::since()->worse, 1U);
    std::uint64_t findings = 0;
    facts::for_each_finding([&](const facts::Finding& finding) { findings += finding.count; });
    EXPECT_EQ(findings, 3U);
  }
  EXPECT_EQ(facts::severity(issue), -1);
  EXPECT_EQ(facts::patterns(issue).message, "");
  EXPECT_THAT(facts::places(issue), IsEmpty());
  EXPECT_FALSE(facts::change(issue));
  EXPECT_FALSE(facts::first_seen(issue));
  EXPECT_FALSE(facts::since());
  facts::for_each_finding([](const facts::Finding& /*finding*/) { FAIL() << "no report"; });
}

TEST_F(RunFactsTest, TellWhereFindingsWereCollapsedBefore) {
  report_facts().inputs = {{"a.jsonl", 120, false, false}};
  report_facts().parts = {"r1", "r2", "r2"};
  report_facts().collected_at = 1763699300;
  report_facts().findings_read = 42;
  report_facts().lines_rejected = 7;
  report_facts().examination = {
      .nodes_examined = 1, .not_examined_with_findings = {}, .names = {"cn1"}};
  EXPECT_THAT(facts::parts(), ElementsAre("r1", "r2", "r2"));
  EXPECT_EQ(facts::collected_at(), 1763699300);
  EXPECT_EQ(facts::findings_read(), 42U);
  EXPECT_EQ(facts::lines_rejected(), 7U);
  EXPECT_THAT(facts::examined_nodes(), ElementsAre("cn1"));
}

TEST_F(RunFactsTest, TellWhetherAnythingWasLostOnTheWay) {
  report_facts().inputs = {{.name = "a.jsonl"}};
  report_facts().lines_rejected = 7;
  report_facts().parts_twice = {"r2"};
  report_facts().expectation = {
      .nodes_expected = 1, .silent = {"cn1"}, .not_expected = {}, .alike = {}};
  EXPECT_TRUE(facts::has_whole_inputs());
  report_facts().parts_missing = {"r3"};
  EXPECT_FALSE(facts::has_whole_inputs());
  report_facts().parts_missing.clear();
  report_facts().inputs[0].is_cut_off = true;
  EXPECT_FALSE(facts::has_whole_inputs());
}

TEST_F(RunFactsTest, OneOfSeveralInputsThatGaveNothingMayHaveBeenLost) {
  report_facts().inputs = {{.name = "a.jsonl", .is_useless = true}};
  EXPECT_TRUE(facts::has_whole_inputs());
  report_facts().inputs.push_back({.name = "b.jsonl"});
  EXPECT_FALSE(facts::has_whole_inputs());
}

}  // namespace
