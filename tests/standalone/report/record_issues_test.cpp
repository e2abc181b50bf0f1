#include "standalone/report/record_issues.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using vond::postprocessor::Type;
using vond::standalone::CollapsedIssue;
using vond::standalone::CollapsedOutput;
using vond::standalone::RecordIssues;
using vond::standalone::StringInterner;

using Issue = std::shared_ptr<RecordIssues::Issue>;
using Names = std::vector<std::string>;

TEST(RecordIssues, AddressesAreInTheOrderOfNumbers) {
  const RecordIssues issues(3);
  EXPECT_LT(issues[0], issues[1]);
  EXPECT_LT(issues[1], issues[2]);
  EXPECT_EQ(issues[1], issues[1]);
}

TEST(RecordIssues, TellWhatTheCollapsedOnesDo) {
  StringInterner nodes;
  nodes.id_of("n1");
  nodes.id_of("n2");
  CollapsedIssue collapsed;
  collapsed.id = "disk";
  collapsed.definitions = {"a", "b"};
  CollapsedOutput output;
  output.texts.category = "STORAGE";
  output.texts.message = "Disk is full.";
  output.texts.remedy = "Empty it.";
  output.nodes = {1, 0, 1};
  output.row_ids = {2, 7};
  collapsed.outputs = {output, CollapsedOutput()};
  std::vector<CollapsedIssue> all(2);
  all[1] = collapsed;
  RecordIssues issues(2);
  issues.fill(std::move(all), nodes);
  EXPECT_TRUE(issues[0]->outputs.empty());
  ASSERT_EQ(issues[1]->outputs.size(), 2U);
  EXPECT_EQ(issues[1]->outputs[0]->identifier, "disk");
  EXPECT_EQ(issues[1]->outputs[0]->category, "STORAGE");
  EXPECT_EQ(issues[1]->outputs[0]->message, "Disk is full.");
  EXPECT_EQ(issues[1]->outputs[0]->remedy, "Empty it.");
  EXPECT_EQ(issues[1]->outputs[0]->node_names, (Names{"n2", "n1", "n2"}));
  EXPECT_EQ(issues[1]->outputs[0]->row_ids, (std::vector<int>{2, 7}));
  EXPECT_EQ(issues[1]->outputs[1]->identifier, "disk");
  EXPECT_EQ(issues[1]->fwd_names, (std::set<std::string>{"a", "b"}));
}

TEST(RecordIssues, ThatReferToEachOtherAreReleased) {
  std::optional<RecordIssues> issues(2);
  (*issues)[0]->related_issues[Type::OBSERVATION].insert((*issues)[1]);
  (*issues)[1]->related_issues[Type::DIAGNOSIS].insert((*issues)[0]);
  const std::weak_ptr<RecordIssues::Issue> watched = (*issues)[0];
  issues.reset();
  EXPECT_TRUE(watched.expired());
}

TEST(RecordIssues, ThatSomebodyHoldsStayAndAreNoLongerRelated) {
  std::optional<RecordIssues> issues(2);
  const Issue held = (*issues)[0];
  held->related_issues[Type::OBSERVATION].insert((*issues)[1]);
  issues.reset();
  EXPECT_TRUE(held->related_issues.empty());
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
