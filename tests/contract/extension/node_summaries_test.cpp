#include "vond/extension/node_summaries.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/fake_host.h"
#include "tests/support/records.h"

namespace vond::test {
namespace {

using extension::count_distinct_nodes;
using extension::DistinctNames;
using extension::NodeSummaries;

class NodeSummariesTest : public ::testing::Test {
 protected:
  NodeSummariesTest() { fake_host() = FakeHost(); }
  ~NodeSummariesTest() override { fake_host() = FakeHost(); }

  NodeSummaries nodes;
  postprocessor::StringInterface strings;
};

TEST_F(NodeSummariesTest, CountADistinctNodeOnce) {
  const Issue issue = make_issue({.nodes = {"a", "b", "a"}});
  add_output(issue, {});
  add_output(issue, {"b", "c"});
  EXPECT_EQ(nodes.count(*issue), 3U);
  EXPECT_EQ(nodes.count(*issue), 3U);
}

TEST_F(NodeSummariesTest, CountNoneOneAndMany) {
  EXPECT_EQ(count_distinct_nodes(*make_issue_without_outputs()), 0U);
  EXPECT_EQ(count_distinct_nodes(*make_issue({.nodes = {"a"}})), 1U);
  for (const std::size_t count : {2U, 3U, 4U, 7U, 8U, 1000U}) {
    std::vector<std::string> names;
    for (std::size_t number = 0; number < count; ++number) {
      names.push_back("node" + std::to_string(number));
    }
    const Issue issue = make_issue({.nodes = names});
    add_output(issue, names);
    EXPECT_EQ(count_distinct_nodes(*issue), count);
  }
}

TEST_F(NodeSummariesTest, NamesMayBeAsManyAsWereAnnounced) {
  const std::vector<std::string> names = {"a", "b", "a"};
  DistinctNames distinct(names.size());
  for (const std::string& name : names) {
    distinct.add(name);
  }
  EXPECT_EQ(distinct.count(), 2U);
}

TEST_F(NodeSummariesTest, HandTheHostOneListForEachOutputAndAskItOnce) {
  const Issue issue = make_issue({.nodes = {"b", "a"}});
  add_output(issue, {"b"});
  EXPECT_EQ(nodes.text(*issue, strings), "[b;a;][b;]");
  EXPECT_EQ(nodes.text(*issue, strings), "[b;a;][b;]");
  EXPECT_EQ(fake_host().calls["get_node_string"], 1);
  EXPECT_EQ(nodes.text(*make_issue({.nodes = {"c"}}), strings), "[c;]");
}

TEST_F(NodeSummariesTest, AskAgainWhenTheHostHasFailed) {
  const Issue issue = make_issue({.nodes = {"a"}});
  fake_host().failing_operation = "get_node_string";
  EXPECT_THROW(nodes.text(*issue, strings), std::runtime_error);
  EXPECT_EQ(nodes.text(*issue, strings), "[a;]");
}

}  // namespace
}  // namespace vond::test
