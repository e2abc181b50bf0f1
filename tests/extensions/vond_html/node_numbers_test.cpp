#include "node_numbers.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace vond::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vond_html::NodeGroup;
using vond_html::NodeNumbers;

NodeGroup group(const std::string& prefix, int first, int last) {
  NodeGroup group{prefix, {}};
  for (int number = first; number <= last; ++number) {
    group.nodes.push_back({.name = prefix + std::to_string(number)});
  }
  return group;
}

TEST(NodeNumbers, GoThroughAllGroups) {
  const std::vector<NodeGroup> groups = {group("cn", 1, 3), group("gpu", 1, 2)};
  const NodeNumbers numbers(groups);
  EXPECT_THAT(numbers.ranges_of({"cn1"}), ElementsAre(0));
  EXPECT_THAT(numbers.ranges_of({"gpu2"}), ElementsAre(4));
}

TEST(NodeNumbers, WhatFollowsOneAnotherIsARange) {
  const std::vector<NodeGroup> groups = {group("cn", 0, 9)};
  const NodeNumbers numbers(groups);
  EXPECT_THAT(numbers.ranges_of({"cn9", "cn0", "cn2", "cn1", "cn7"}), ElementsAre(0, -2, 7, 9));
  EXPECT_THAT(numbers.ranges_of({"cn5", "cn5"}), ElementsAre(5));
}

TEST(NodeNumbers, UnknownNodesHaveNone) {
  const std::vector<NodeGroup> groups = {group("cn", 0, 1)};
  EXPECT_THAT(NodeNumbers(groups).ranges_of({"x"}), IsEmpty());
}

}  // namespace
}  // namespace vond::test
