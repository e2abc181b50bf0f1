#include "vond/extension/issues_by_definition.h"

#include <gtest/gtest.h>

#include "tests/support/records.h"

namespace vond::test {
namespace {

using extension::IssuesByDefinition;
using postprocessor::IssueList;

TEST(IssuesByDefinition, AreThoseOfTheIndexThatNameItByMaskAndInTheirOrder) {
  Data data = make_record();
  const Issue both = make_issue({.id = "z", .definitions = {"a", "b"}});
  const Issue one = make_issue({.id = "y", .definitions = {"a"}});
  add_issue(data, 24, both);
  add_issue(data, 24, make_issue({.id = "other", .definitions = {"c"}}));
  add_issue(data, 24, one);
  add_issue(data, 24, both);
  add_issue(data, 5, one);
  IssuesByDefinition issues(data);
  ASSERT_NE(issues.find("a"), nullptr);
  EXPECT_EQ(issues.find("a")->size(), 2U);
  EXPECT_EQ(issues.find("a")->at(24), (IssueList{both, one, both}));
  EXPECT_EQ(issues.find("a")->at(5), IssueList{one});
  EXPECT_EQ(issues.find("b")->at(24), (IssueList{both, both}));
}

TEST(IssuesByDefinition, AreNoneForANameThatNoIssueHas) {
  Data data = make_record();
  add_issue(data, 24, make_issue({.id = "id", .definitions = {"a/b"}}));
  IssuesByDefinition issues(data);
  EXPECT_EQ(issues.find("a"), nullptr);
  EXPECT_EQ(issues.find("b"), nullptr);
  EXPECT_EQ(issues.find(""), nullptr);
}

TEST(IssuesByDefinition, AreWithoutEmptyEntries) {
  Data data = make_record();
  const Issue issue = make_issue({.id = "id", .definitions = {"a"}});
  (*data.issues_by_mask)[24] = {nullptr, issue, nullptr};
  EXPECT_EQ(IssuesByDefinition(data).find("a")->at(24), IssueList{issue});
}

TEST(IssuesByDefinition, AreNoneWithoutAnIndex) {
  Data data = make_record();
  data.issues_by_mask.reset();
  EXPECT_EQ(IssuesByDefinition(data).find("a"), nullptr);
}

TEST(IssuesByDefinition, AreSortedWhenTheyAreFirstAskedFor) {
  Data data = make_record();
  IssuesByDefinition issues(data);
  add_issue(data, 24, make_issue({.id = "id", .definitions = {"a", "b"}}));
  EXPECT_NE(issues.find("a"), nullptr);
  data.issues_by_mask->clear();
  EXPECT_NE(issues.find("b"), nullptr);
}

}  // namespace
}  // namespace vond::test
