#include "test_cases.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/records.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::test {
namespace {

using extension::IssuesByDefinition;
using vond_junit::TestCase;
using vond_junit::TestSuite;
using vond_junit::TestSuites;
using Texts = std::vector<std::string>;

class TestCasesTest : public ::testing::Test {
 protected:
  std::vector<TestSuite> suites() {
    IssuesByDefinition issues(data);
    return TestSuites(*data.fwd_root, issues, vocabulary::SEVERITY_BANDS).suites();
  }

  /// Returns "CLASS | NAME" for every case of the first suite.
  Texts names() {
    Texts texts;
    const std::vector<TestSuite> found = suites();
    for (const TestCase& test : found.at(0).cases) {
      texts.push_back(test.class_name + " | " + test.name);
    }
    return texts;
  }

  static Node definition(const std::string& name, const std::vector<Node>& children = {}) {
    return make_definition({.name = name}, {children});
  }
  static Node failing(const std::string& name, const std::vector<Node>& children = {}) {
    return make_definition({.name = name, .passed = false}, {children});
  }
  static Node skipped(const std::string& name, const std::vector<Node>& children = {}) {
    return make_definition({.name = name, .skipped = true}, {children});
  }

  void add(unsigned mask, const std::string& definition_name) {
    add_issue(data, mask, make_issue({.id = "i", .definitions = {definition_name}}));
  }

  Data data = make_record();
};

TEST_F(TestCasesTest, WithoutRootsAreNone) { EXPECT_TRUE(suites().empty()); }

TEST_F(TestCasesTest, OfEveryRootAreASuite) {
  data.fwd_root->roots = {definition("b", {definition("b/x")}), definition("a")};
  const auto found = suites();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].name, "b");
  EXPECT_EQ(found[0].cases.size(), 2U);
  EXPECT_EQ(found[1].name, "a");
  EXPECT_EQ(found[1].cases.size(), 1U);
}

TEST_F(TestCasesTest, HaveTheParentsAsClassAndTheLeafAsName) {
  data.fwd_root->roots = {
      definition("r", {definition("r/a", {definition("r/a/x")}), definition("r/b")})};
  EXPECT_EQ(names(), (Texts{"r | r", "r | a", "r.a | x", "r | b"}));
}

TEST_F(TestCasesTest, StandInTheOrderOfTheTreeWhateverTheGroups) {
  data.fwd_root->roots = {
      make_definition({.name = "r"}, {{definition("r/z")}, {}, {definition("r/a")}})};
  EXPECT_EQ(names(), (Texts{"r | r", "r | z", "r | a"}));
}

TEST_F(TestCasesTest, NamesThatDoNotBeginWithTheParentStayWhole) {
  data.fwd_root->roots = {definition(
      "r", {definition("s/x", {definition("s/x/y")}), definition("rx"), definition("r/")})};
  EXPECT_EQ(names(), (Texts{"r | r", "r | s/x", "r.s.x | y", "r | rx", "r | r/"}));
}

TEST_F(TestCasesTest, ARootWithAPathHasItAsClass) {
  data.fwd_root->roots = {definition("r/new", {definition("r/new/a")})};
  EXPECT_EQ(names(), (Texts{"r.new | new", "r.new | a"}));
}

TEST_F(TestCasesTest, DotsOfNamesAreNoStepsOfAClass) {
  data.fwd_root->roots = {
      definition("mpi-4.1", {definition("mpi-4.1/v1.2", {definition("mpi-4.1/v1.2/a.b")})})};
  EXPECT_EQ(names(), (Texts{"mpi-4_1 | mpi-4.1", "mpi-4_1 | v1.2", "mpi-4_1.v1_2 | a.b"}));
}

TEST_F(TestCasesTest, AreCountedByStatus) {
  data.fwd_root->roots = {
      failing("r", {failing("r/a"), skipped("r/b"), definition("r/c"),
                    make_definition({.name = "r/d", .passed = false, .skipped = true})})};
  EXPECT_EQ(suites()[0].failures(), 2U);
  EXPECT_EQ(suites()[0].skipped(), 2U);
}

TEST_F(TestCasesTest, HaveTheWorstBandOfTheirOwnContributingIssues) {
  data.fail_threshold = 25;
  data.fwd_root->roots = {failing("a"), failing("b"), failing("c"), failing("d")};
  add(24, "a");
  add(20, "a");
  add(22, "b");
  add(0, "c");
  const auto found = suites();
  EXPECT_EQ(found[0].cases[0].worst_band, 0U);
  EXPECT_EQ(found[1].cases[0].worst_band, 1U);
  EXPECT_EQ(found[2].cases[0].worst_band, 3U);
  EXPECT_EQ(found[3].cases[0].worst_band, 3U);
}

TEST_F(TestCasesTest, HaveTheWorstBandOfWhatFailsBelow) {
  data.fwd_root->roots = {
      failing("r", {failing("r/a", {failing("r/a/x"), definition("r/a/y")}), failing("r/b")})};
  add(20, "r/b");
  add(20, "r/a");
  add(24, "r/a/x");
  const auto cases = suites()[0].cases;
  ASSERT_EQ(cases.size(), 5U);
  EXPECT_EQ(cases[0].worst_band, 0U);
  EXPECT_EQ(cases[0].failing_children, (Texts{"r/a", "r/b"}));
  EXPECT_EQ(cases[1].worst_band, 0U);
  EXPECT_EQ(cases[1].failing_children, Texts{"r/a/x"});
}

TEST_F(TestCasesTest, DoNotFailForWhatIsBelowASkippedOne) {
  data.fwd_root->roots = {failing("r", {skipped("r/a", {failing("r/a/x")}), failing("r/b")})};
  add(24, "r/a");
  add(24, "r/a/x");
  add(20, "r/b");
  const auto cases = suites()[0].cases;
  ASSERT_EQ(cases.size(), 4U);
  EXPECT_EQ(cases[0].worst_band, 1U);
  EXPECT_EQ(cases[0].failing_children, Texts{"r/b"});
}

}  // namespace
}  // namespace vond::test
