#include <string>

#include "issue_printing.h"
#include "tests/extensions/vond_output_log/text_test.h"
#include "tests/support/grouping_locale.h"

namespace vond::test {
namespace {

using postprocessor::Type;
using vond_output_log::IssuePrinting;

class IssuePrinterTest : public TextTest {
 protected:
  std::string print(const Issue& issue, bool diagnosis = true, int number = 1, int width = 1,
                    const std::string& prefix = "") {
    IssuePrinting().PrintOutput(issue, data, number, width, prefix, diagnosis);
    return output.take();
  }
};

TEST_F(IssuePrinterTest, WritesHeaderAndAllLinesInTheirOrder) {
  const Issue issue = make_issue({.id = "disk-full",
                                  .category = "STORAGE",
                                  .message = "The disk is full.",
                                  .remedy = "Delete files.",
                                  .nodes = {"n1"},
                                  .row_ids = {12, 7, 12},
                                  .definitions = {"b/two", "a/one"}});
  issue->related_issues[Type::OBSERVATION] = {make_issue({.id = "df"})};
  data.log_level = "info";
  EXPECT_EQ(print(issue),
            "1. disk-full (appears on 1 node)\n"
            "   Message: The disk is full.\n"
            "   Remedy: Delete files.\n"
            "   Nodes: n1\n"
            "   Category: STORAGE\n"
            "   Based on Observations: df\n"
            "   Framework Definitions: a/one, b/two\n"
            "   Database Row IDs: 12,7,12\n");
}

TEST_F(IssuePrinterTest, CountsOneNodeInTheSingular) {
  EXPECT_EQ(print(make_issue({.id = "id", .nodes = {"n1"}})),
            "1. id (appears on 1 node)\n"
            "   Nodes: n1\n"
            "   Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, CountsTwoNodesInThePlural) {
  EXPECT_EQ(print(make_issue({.id = "id", .nodes = {"n1", "n2"}})),
            "1. id (appears on 2 nodes)\n"
            "   Nodes: n[1-2]\n"
            "   Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, CountsNoNodesInThePluralAndStillHasANodesLine) {
  EXPECT_EQ(print(make_issue({.id = "id"})),
            "1. id (appears on 0 nodes)\n"
            "   Nodes: none\n"
            "   Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, CountsANodeOfTwoOutputsOnce) {
  const Issue issue = make_issue({.id = "id", .nodes = {"n1", "n1"}});
  add_output(issue, {"n1"});
  EXPECT_EQ(print(issue),
            "1. id (appears on 1 node)\n"
            "   Nodes: n1\n"
            "   Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, TakesItsTextsFromTheFirstOutputAlone) {
  const Issue issue = make_issue({.id = "id", .row_ids = {1}});
  add_output(issue, {"n1"});
  data.log_level = "debug";
  EXPECT_EQ(print(issue),
            "1. id (appears on 1 node)\n"
            "   Nodes: n1\n"
            "   Category: FUNCTIONALITY\n"
            "   Database Row IDs: 1\n");
}

TEST_F(IssuePrinterTest, WritesAnIssueWithoutOutputsWithItsCategoryAlone) {
  data.log_level = "info";
  EXPECT_EQ(print(make_issue_without_outputs()),
            "1.  (appears on 0 nodes)\n"
            "   Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, WritesTheIdAsItIs) {
  EXPECT_EQ(print(make_issue({.id = "disk-full #sda"})),
            "1. disk-full #sda (appears on 0 nodes)\n"
            "   Nodes: none\n"
            "   Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, PadsNumbersToTheWidthOfTheirGroup) {
  const Issue issue = make_issue({.id = "id", .nodes = {"n1"}});
  EXPECT_EQ(print(issue, true, 9, 2),
            "9.  id (appears on 1 node)\n"
            "    Nodes: n1\n"
            "    Category: FUNCTIONALITY\n");
  EXPECT_EQ(print(issue, true, 10, 2),
            "10. id (appears on 1 node)\n"
            "    Nodes: n1\n"
            "    Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, KnowsTheDigitsOfNumbersAroundPowersOfTen) {
  const Issue issue = make_issue_without_outputs();
  const std::string rest = " (appears on 0 nodes)\n       Category: FUNCTIONALITY\n";
  EXPECT_EQ(print(issue, true, 1, 5), "1.     " + rest);
  EXPECT_EQ(print(issue, true, 99, 5), "99.    " + rest);
  EXPECT_EQ(print(issue, true, 100, 5), "100.   " + rest);
  EXPECT_EQ(print(issue, true, 999, 5), "999.   " + rest);
  EXPECT_EQ(print(issue, true, 1000, 5), "1000.  " + rest);
  EXPECT_EQ(print(issue, true, 99999, 5), "99999. " + rest);
}

TEST_F(IssuePrinterTest, BeginsEveryLineWithThePrefix) {
  EXPECT_EQ(print(make_issue({.id = "id", .message = "text"}), true, 3, 1, "| "),
            "| 3. id (appears on 0 nodes)\n"
            "|    Message: text\n"
            "|    Nodes: none\n"
            "|    Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, ListsTheObservationsOfADiagnosisOnceAndInByteOrder) {
  const Issue issue = make_issue_without_outputs();
  for (const char* id : {"b", "c#2", "Z", "c#1", "a"}) {
    issue->related_issues[Type::OBSERVATION].insert(make_issue({.id = id}));
  }
  issue->related_issues[Type::DIAGNOSIS] = {make_issue({.id = "never shown"})};
  EXPECT_EQ(print(issue, true),
            "1.  (appears on 0 nodes)\n"
            "   Category: FUNCTIONALITY\n"
            "   Based on Observations: Z, a, b, c\n");
}

TEST_F(IssuePrinterTest, ListsTheDiagnosesOfAnObservationOnceAndInByteOrder) {
  const Issue issue = make_issue_without_outputs();
  for (const char* id : {"b", "c#2", "Z", "c#1", "a"}) {
    issue->related_issues[Type::DIAGNOSIS].insert(make_issue({.id = id}));
  }
  issue->related_issues[Type::OBSERVATION] = {make_issue({.id = "never shown"})};
  EXPECT_EQ(print(issue, false),
            "1.  (appears on 0 nodes)\n"
            "   Category: FUNCTIONALITY\n"
            "   Diagnoses: Z, a, b, c\n");
}

TEST_F(IssuePrinterTest, HasNoLineForRelatedIssuesThatThereAreNone) {
  const Issue issue = make_issue_without_outputs();
  const std::string expected =
      "1.  (appears on 0 nodes)\n"
      "   Category: FUNCTIONALITY\n";
  EXPECT_EQ(print(issue, true), expected);
  EXPECT_EQ(print(issue, false), expected);
  issue->related_issues = {{Type::DIAGNOSIS, {}}, {Type::OBSERVATION, {}}};
  EXPECT_EQ(print(issue, true), expected);
  EXPECT_EQ(print(issue, false), expected);
}

TEST_F(IssuePrinterTest, ShowsRowIdsAtTheLevelsInfoAndDebugAlone) {
  const Issue issue = make_issue({.id = "id", .row_ids = {12, 7, 12}});
  const std::string expected =
      "1. id (appears on 0 nodes)\n"
      "   Nodes: none\n"
      "   Category: FUNCTIONALITY\n";
  for (const char* level :
       {"warning", "alert", "critical", "error", "notice", "", "INFO", "Debug", "info "}) {
    data.log_level = level;
    EXPECT_EQ(print(issue), expected) << level;
  }
  for (const char* level : {"info", "debug"}) {
    data.log_level = level;
    EXPECT_EQ(print(issue), expected + "   Database Row IDs: 12,7,12\n") << level;
  }
}

TEST_F(IssuePrinterTest, HasNoLineForRowIdsThatThereAreNone) {
  data.log_level = "debug";
  EXPECT_EQ(print(make_issue({.id = "id"})),
            "1. id (appears on 0 nodes)\n"
            "   Nodes: none\n"
            "   Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, WritesRowIdZeroAndNegativeOnes) {
  data.log_level = "debug";
  EXPECT_EQ(print(make_issue({.id = "id", .row_ids = {0, -5}})),
            "1. id (appears on 0 nodes)\n"
            "   Nodes: none\n"
            "   Category: FUNCTIONALITY\n"
            "   Database Row IDs: 0,-5\n");
}

TEST_F(IssuePrinterTest, CategoryLineNamesTheFirstOutputsCategory) {
  const Issue issue = make_issue({.id = "id", .category = "NETWORK"});
  add_output(issue, {});
  EXPECT_EQ(IssuePrinting().GetCategoryLine(issue, ">> "), ">> Category: NETWORK\n");
}

TEST_F(IssuePrinterTest, CategoryIsFunctionalityWhenItIsEmptyOrMissing) {
  const Issue issue = make_issue({.id = "id"});
  add_output(issue, {});
  EXPECT_EQ(IssuePrinting().GetCategoryLine(issue, ""), "Category: FUNCTIONALITY\n");
  EXPECT_EQ(IssuePrinting().GetCategoryLine(make_issue_without_outputs(), "  "),
            "  Category: FUNCTIONALITY\n");
}

TEST_F(IssuePrinterTest, ReadsTheSameUnderALocaleThatGroupsDigits) {
  const Issue issue = make_issue({.id = "id", .row_ids = {1234}});
  add_output(issue, {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"});
  data.log_level = "info";
  const std::string expected = print(issue, true, 123, 4);
  EXPECT_EQ(expected.substr(0, expected.find('\n')), "123.  id (appears on 12 nodes)");
  const GroupingLocale locale;
  EXPECT_EQ(print(issue, true, 123, 4), expected);
}

}  // namespace
}  // namespace vond::test
