#include <gtest/gtest.h>

#include <bitset>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/records.h"
#include "vond/analysis/analysis_output.h"
#include "vond/fwd.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/severity.h"

namespace {

using vond::Fwd;
using vond::FwdHierarchy;
using vond::FwdNode;
using vond::analysis::AnalysisOutput;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::CompareBitset;
using vond::postprocessor::Severity;
using vond::postprocessor::SeverityMask;
using vond::postprocessor::Type;
using vond::test::add_output;
using vond::test::make_issue;
using vond::test::make_issue_without_outputs;

using Strings = std::vector<std::string>;
using RelatedIssues = std::map<Type, std::set<std::shared_ptr<CollapsedAnalysisOutput>>>;
using Counts = std::map<std::bitset<5>, int, CompareBitset>;

static_assert(std::is_same_v<decltype(AnalysisOutput::identifier), std::string>);
static_assert(std::is_same_v<decltype(AnalysisOutput::category), std::string>);
static_assert(std::is_same_v<decltype(AnalysisOutput::message), std::string>);
static_assert(std::is_same_v<decltype(AnalysisOutput::node_names), Strings>);
static_assert(std::is_same_v<decltype(AnalysisOutput::remedy), std::string>);
static_assert(std::is_same_v<decltype(AnalysisOutput::row_ids), std::vector<int>>);

static_assert(std::is_same_v<decltype(CollapsedAnalysisOutput::outputs),
                             std::vector<std::shared_ptr<AnalysisOutput>>>);
static_assert(std::is_same_v<decltype(CollapsedAnalysisOutput::fwd_names), std::set<std::string>>);
static_assert(std::is_same_v<decltype(CollapsedAnalysisOutput::related_issues), RelatedIssues>);

static_assert(std::is_same_v<decltype(Fwd::passed), bool>);
static_assert(std::is_same_v<decltype(Fwd::issue_counts), Counts>);
static_assert(std::is_same_v<decltype(Fwd::name), std::string>);
static_assert(std::is_same_v<decltype(Fwd::node), FwdNode*>);
static_assert(std::is_same_v<decltype(Fwd::skipped), bool>);
static_assert(std::is_same_v<decltype(FwdHierarchy::roots), std::vector<std::shared_ptr<FwdNode>>>);

static_assert(sizeof(Severity) == 4);
static_assert(static_cast<int>(Severity::INFORMATIONAL) == 0);
static_assert(static_cast<int>(Severity::WARNING) == 4);
static_assert(static_cast<int>(Severity::CRITICAL) == 8);
static_assert(static_cast<int>(Type::DIAGNOSIS) == 0);
static_assert(static_cast<int>(Type::OBSERVATION) == 1);
static_assert(std::is_same_v<SeverityMask, std::bitset<5>>);

using Accessor = std::string (CollapsedAnalysisOutput::*)(std::string) const;
static_assert(std::is_same_v<decltype(&CollapsedAnalysisOutput::get_message_string), Accessor>);
static_assert(std::is_same_v<decltype(&CollapsedAnalysisOutput::get_remedy_string), Accessor>);
static_assert(
    std::is_same_v<decltype(&CollapsedAnalysisOutput::get_fwd_string),
                   std::string (CollapsedAnalysisOutput::*)(std::string, std::string) const>);

TEST(AnalysisOutputRecord, HasItsFieldsInTheOrderOfTheContract) {
  const AnalysisOutput output;
  const auto& [f1, f2, f3, f4, f5, f6] = output;
  EXPECT_EQ(&f1, &output.identifier);
  EXPECT_EQ(&f2, &output.category);
  EXPECT_EQ(&f3, &output.message);
  EXPECT_EQ(&f4, &output.node_names);
  EXPECT_EQ(&f5, &output.remedy);
  EXPECT_EQ(&f6, &output.row_ids);
}

TEST(IssueRecord, HasItsFieldsInTheOrderOfTheContract) {
  const CollapsedAnalysisOutput issue;
  const auto& [f1, f2, f3] = issue;
  EXPECT_EQ(&f1, &issue.outputs);
  EXPECT_EQ(&f2, &issue.fwd_names);
  EXPECT_EQ(&f3, &issue.related_issues);
}

TEST(DefinitionRecord, HasItsFieldsInTheOrderOfTheContract) {
  const Fwd fwd;
  const auto& [f1, f2, f3, f4, f5] = fwd;
  EXPECT_EQ(&f1, &fwd.passed);
  EXPECT_EQ(&f2, &fwd.issue_counts);
  EXPECT_EQ(&f3, &fwd.name);
  EXPECT_EQ(&f4, &fwd.node);
  EXPECT_EQ(&f5, &fwd.skipped);
}

TEST(IssueRecord, WithoutOutputsHasAnEmptyIdAndNoRowIds) {
  const auto issue = make_issue_without_outputs();
  EXPECT_EQ(issue->get_id(), "");
  EXPECT_EQ(issue->get_row_id(), std::vector<int>());
}

TEST(IssueRecord, TakesItsIdAndRowIdsFromTheFirstOutput) {
  const auto issue = make_issue({.id = "disk-full#sda", .row_ids = {12, 7, 12}});
  add_output(issue, {"n1"});
  EXPECT_EQ(issue->get_id(), "disk-full#sda");
  EXPECT_EQ(issue->get_row_id(), (std::vector<int>{12, 7, 12}));
}

TEST(IssueRecord, HandsOutACopyOfItsRowIds) {
  const auto issue = make_issue({.id = "id", .row_ids = {1}});
  std::vector<int> rows = issue->get_row_id();
  rows.push_back(2);
  EXPECT_EQ(issue->get_row_id(), std::vector<int>{1});
}

TEST(IssueRecord, ReadsARelatedTypeThatIsAbsentAsAnEmptySet) {
  const auto issue = make_issue({.id = "id"});
  EXPECT_TRUE(issue->related_issues[Type::OBSERVATION].empty());
}

TEST(SeverityMask, IsOrderedByItsUnsignedValue) {
  for (unsigned left = 0; left < 32; ++left) {
    for (unsigned right = 0; right < 32; ++right) {
      EXPECT_EQ(CompareBitset()(SeverityMask(left), SeverityMask(right)), left < right);
    }
  }
}

TEST(SeverityMask, FindsExactlyOneValueInAMap) {
  Counts counts = {{24, 1}, {8, 2}, {16, 3}};
  EXPECT_EQ(counts.count(24), 1U);
  EXPECT_EQ(counts.count(25), 0U);
  EXPECT_EQ(counts.begin()->first, 8);
  EXPECT_EQ(counts.rbegin()->first, 24);
}

TEST(FailBit, IsSetFromTheThresholdOn) {
  EXPECT_EQ(vond::postprocessor::fail_bit(74, 75), 0U);
  EXPECT_EQ(vond::postprocessor::fail_bit(75, 75), 16U);
  EXPECT_EQ(vond::postprocessor::fail_bit(100, 75), 16U);
  EXPECT_EQ(vond::postprocessor::fail_bit(0, 0), 16U);
  EXPECT_EQ(vond::postprocessor::fail_bit(100, 101), 0U);
}

}  // namespace
