#include "failure.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/records.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::test {
namespace {

using extension::IssuesByDefinition;
using vond_junit::Failure;
using vond_junit::Failures;
using vond_junit::IssueLine;
using vond_junit::TestSuites;

class FailureTest : public ::testing::Test {
 protected:
  /// Returns why the first definition of the tree fails.
  Failure of_first() {
    IssuesByDefinition issues(data);
    IssueLine line;
    const TestSuites suites(*data.fwd_root, issues, vocabulary::SEVERITY_BANDS);
    return Failures(issues, vocabulary::SEVERITY_BANDS, line).of(suites.suites()[0].cases[0]);
  }

  void add(unsigned mask, const std::string& id) {
    add_issue(data, mask, make_issue({.id = id, .definitions = {"r"}}));
  }

  void set_root(const std::vector<Node>& children = {}) {
    data.fwd_root->roots = {make_definition({.name = "r", .passed = false}, {children})};
  }

  static Node failing(const std::string& name) {
    return make_definition({.name = name, .passed = false});
  }

  Data data = make_record();
};

TEST_F(FailureTest, TellsTheIssuesOfTheDefinitionWorstFirst) {
  set_root();
  add(1, "c");
  add(25, "b");
  add(24, "a");
  add_issue(data, 24, make_issue({.id = "of another", .definitions = {"s"}}));
  const Failure failure = of_first();
  EXPECT_EQ(failure.type, "CRITICAL");
  EXPECT_EQ(failure.message, "2 issues contribute to FAIL: a, b");
  EXPECT_EQ(failure.content,
            "CRITICAL diagnosis a\n"
            "CRITICAL observation b\n"
            "INFORMATIONAL observation c\n");
}

TEST_F(FailureTest, NamesThreeIssuesInItsMessageAndTwentyInItsContent) {
  set_root();
  for (int number = 1; number <= 22; ++number) {
    add(24, "i" + std::to_string(number));
  }
  const Failure failure = of_first();
  EXPECT_EQ(failure.message, "22 issues contribute to FAIL: i1, i2, i3 and 19 more");
  EXPECT_NE(failure.content.find("CRITICAL diagnosis i20\nand 2 more\n"), std::string::npos);
}

TEST_F(FailureTest, TellsTheDefinitionsBelowThatFail) {
  set_root({failing("r/a"), make_definition({.name = "r/b"}), failing("r/c")});
  add_issue(data, 24, make_issue({.id = "i", .definitions = {"r/c"}}));
  Failure failure = of_first();
  EXPECT_EQ(failure.type, "CRITICAL");
  EXPECT_EQ(failure.message, "2 definitions below fail");
  EXPECT_EQ(failure.content, "FAIL r/a\nFAIL r/c\n");
  add(24, "own");
  failure = of_first();
  EXPECT_EQ(failure.message, "1 issue contributes to FAIL: own; 2 definitions below fail");
  EXPECT_EQ(failure.content, "CRITICAL diagnosis own\nFAIL r/a\nFAIL r/c\n");
}

TEST_F(FailureTest, ThatNothingExplainsIsStillOne) {
  set_root();
  add(1, "harmless");
  const Failure failure = of_first();
  EXPECT_EQ(failure.type, "FAIL");
  EXPECT_EQ(failure.message, "fails");
}

TEST_F(FailureTest, CutsLongIdsAndNames) {
  set_root({failing("r/" + std::string(5000, 'a'))});
  add(24, std::string(5000, 'i'));
  const Failure failure = of_first();
  EXPECT_EQ(failure.message, "1 issue contributes to FAIL: " + std::string(200, 'i') +
                                 "...; 1 definition below fails");
  EXPECT_LT(failure.content.size(), 2100U);
}

}  // namespace
}  // namespace vond::test
