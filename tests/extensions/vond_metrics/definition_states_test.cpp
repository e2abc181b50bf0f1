#include "definition_states.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/records.h"

namespace vond::test {
namespace {

using States = std::vector<std::pair<std::string, bool>>;

States states_of(const std::vector<Node>& roots) {
  FwdHierarchy hierarchy;
  hierarchy.roots = roots;
  States states;
  const vond_metrics::DefinitionStates definitions(hierarchy);
  for (const auto& [name, failed] : definitions.states()) {
    states.emplace_back(name, failed);
  }
  return states;
}

TEST(DefinitionStatesTest, OfNoRootsAreNone) { EXPECT_EQ(states_of({}), States()); }

TEST(DefinitionStatesTest, StandInTheOrderOfTheTree) {
  EXPECT_EQ(states_of({make_definition({.name = "b", .passed = false},
                                       {{make_definition({.name = "b/z"})},
                                        {make_definition({.name = "b/a", .passed = false})}}),
                       make_definition({.name = "a"})}),
            (States{{"b", true}, {"b/z", false}, {"b/a", true}, {"a", false}}));
}

TEST(DefinitionStatesTest, LeaveSkippedDefinitionsOutButNotWhatIsBelow) {
  EXPECT_EQ(states_of({make_definition({.name = "a", .passed = false, .skipped = true},
                                       {{make_definition({.name = "a/b"})}})}),
            (States{{"a/b", false}}));
}

TEST(DefinitionStatesTest, OfTwoDefinitionsWithOneNameAreOneThatFailsIfEitherDoes) {
  for (const bool first_passed : {true, false}) {
    EXPECT_EQ(states_of({make_definition({.name = "a", .passed = first_passed}),
                         make_definition({.name = "b"}),
                         make_definition({.name = "a", .passed = !first_passed})}),
              (States{{"a", true}, {"b", false}}));
  }
}

TEST(DefinitionStatesTest, OfASkippedAndAnotherOneWithItsNameAreThatOfTheOther) {
  EXPECT_EQ(states_of({make_definition({.name = "a", .skipped = true}),
                       make_definition({.name = "a", .passed = true})}),
            (States{{"a", false}}));
}

TEST(DefinitionStatesTest, NamesThatLabelsCannotTellApartAreOne) {
  EXPECT_EQ(states_of({make_definition({.name = "a\xFE"}),
                       make_definition({.name = "a\xFF", .passed = false})}),
            (States{{"a\uFFFD", true}}));
}

}  // namespace
}  // namespace vond::test
