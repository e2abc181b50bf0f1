#include "standalone/nodes/group_hint.h"

#include <gtest/gtest.h>

#include "standalone/nodes/node_set.h"

namespace {

using vond::standalone::expand_node_set;
using vond::standalone::group_hint;
using vond::standalone::NodeSetError;

/// Returns the hint at the error that reading `set` ends with.
std::string hint_for(std::string_view set) {
  try {
    expand_node_set(set);
  } catch (const NodeSetError& error) {
    return group_hint(set, error.offset);
  }
  return "no error";
}

TEST(GroupHint, NamesTheCommandThatKnowsTheGroup) {
  EXPECT_EQ(hint_for("@compute"), "; the nodes of a group: $(nodeset -f @compute)");
  EXPECT_EQ(hint_for("n1,@slurm:gpu-2,n2"), "; the nodes of a group: $(nodeset -f @slurm:gpu-2)");
}

TEST(GroupHint, ShowsNoCommandThatAShellCouldMisunderstand) {
  for (const char* const set : {"@a$(reboot)", "@a;b", "@*", "@rack[1-2]", "@"}) {
    EXPECT_EQ(hint_for(set), "; the nodes of a group: $(nodeset -f @group)") << set;
  }
}

TEST(GroupHint, IsSilentAboutOtherErrors) {
  EXPECT_EQ(hint_for("root@n1"), "");
  EXPECT_EQ(hint_for("n[1-2"), "");
  EXPECT_EQ(hint_for("!@compute"), "");
  EXPECT_EQ(group_hint("", 0), "");
}

}  // namespace
