#include "standalone/report/decided_definitions.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "standalone/input/input_error.h"

namespace {

using vond::postprocessor::OBSERVATIONS;
using vond::standalone::CollapsedIssue;
using vond::standalone::decide_definitions;
using vond::standalone::DefinitionSpec;
using vond::standalone::DefinitionTree;
using vond::standalone::InputError;

using Names = std::vector<std::string>;
using Specs = std::vector<DefinitionSpec>;

CollapsedIssue make_issue(int severity, const Names& definitions) {
  CollapsedIssue issue;
  issue.type = OBSERVATIONS;
  issue.severity = severity;
  issue.definitions = definitions;
  return issue;
}

TEST(DecidedDefinitions, WithoutSpecsAreThoseThatIssuesSpell) {
  DefinitionTree tree = decide_definitions(std::nullopt, {make_issue(100, {"a/b"})}, 75);
  EXPECT_FALSE(tree["a"].passed);
  EXPECT_FALSE(tree["a/b"].passed);
  EXPECT_TRUE(tree["a"].issue_counts.empty());
  EXPECT_EQ(tree["a/b"].issue_counts.at(27), 1);
  EXPECT_EQ(tree.unknown_names(), Names());
}

TEST(DecidedDefinitions, AreThoseOfTheSpecsAndThoseThatTheseLack) {
  const Specs specs = {{"a", false, {}}, {"b", true, {}}};
  DefinitionTree tree = decide_definitions(specs, {make_issue(50, {"a", "x"})}, 75);
  EXPECT_EQ(tree.unknown_names(), Names{"x"});
  EXPECT_TRUE(tree["a"].passed);
  EXPECT_EQ(tree["a"].issue_counts.at(7), 1);
  EXPECT_TRUE(tree["b"].skipped);
  EXPECT_EQ(tree["x"].issue_counts.at(7), 1);
}

TEST(DecidedDefinitions, CountEveryIssueThatNamesThem) {
  DefinitionTree tree = decide_definitions(
      std::nullopt, {make_issue(100, {"a", "b"}), make_issue(90, {"a"}), make_issue(0, {"a"})}, 75);
  EXPECT_EQ(tree["a"].issue_counts.at(27), 2);
  EXPECT_EQ(tree["a"].issue_counts.at(3), 1);
  EXPECT_EQ(tree["b"].issue_counts.at(27), 1);
}

TEST(DecidedDefinitions, OfATreeThatIsTooDeepAreAnError) {
  std::string deep = "d";
  for (int level = 2; level <= 257; ++level) {
    deep += "/d";
  }
  EXPECT_THROW(decide_definitions(std::nullopt, {make_issue(1, {deep})}, 75), InputError);
}

}  // namespace
