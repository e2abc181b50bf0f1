#include <cstdlib>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#include "tests/extensions/vond_output_log/text_test.h"
#include "vond_output_log.h"

namespace vond::test {
namespace {

using Issues = std::vector<Issue>;

class IssueSelectionTest : public TextTest {
 protected:
  /// Files an issue of some definitions under a mask and returns it.
  Issue add(unsigned mask, const std::string& id, const std::set<std::string>& definitions) {
    Issue issue = make_issue({.id = id, .definitions = definitions});
    add_issue(data, mask, issue);
    return issue;
  }

  Issues find(const std::string& band, unsigned char type_code) {
    Issues issues;
    tree.find_by_severity(data, issues, band, type_code);
    return issues;
  }

  std::string print(const std::string& definition, const std::string& prefix = "|  ") {
    const Node node = make_definition({.name = definition});
    EXPECT_EQ(tree.print_details(data, *node->fwd, prefix, 0, buffer), 0);
    return output.take();
  }

  const Node name = make_definition({.name = "name"});
};

TEST_F(IssueSelectionTest, FindsAnIndexEntryByBandAndTypeCodeInItsOrder) {
  for (unsigned mask = 0; mask < 32; ++mask) {
    add_issues(data, mask, "mask " + std::to_string(mask) + ", ", 2);
  }
  const auto& index = *data.issues_by_mask;
  for (unsigned char type_code = 0; type_code < 3; ++type_code) {
    EXPECT_EQ(find("critical", type_code), index.at(24U + type_code));
    EXPECT_EQ(find("warning", type_code), index.at(4U + type_code));
    EXPECT_EQ(find("informational", type_code), index.at(0U + type_code));
  }
}

TEST_F(IssueSelectionTest, ThresholdMovesBandsBetweenEntries) {
  for (const unsigned mask : {0U, 4U, 8U, 16U, 20U, 24U}) {
    add_issues(data, mask, "id", 1);
  }
  const auto& index = *data.issues_by_mask;
  data.fail_threshold = 25;
  EXPECT_EQ(find("critical", 0), index.at(24));
  EXPECT_EQ(find("warning", 0), index.at(20));
  EXPECT_EQ(find("informational", 0), index.at(0));
  data.fail_threshold = 24;
  EXPECT_EQ(find("informational", 0), index.at(16));
  data.fail_threshold = 74;
  EXPECT_EQ(find("warning", 0), index.at(20));
  data.fail_threshold = 75;
  EXPECT_EQ(find("warning", 0), index.at(4));
  data.fail_threshold = 100;
  EXPECT_EQ(find("critical", 0), index.at(24));
  data.fail_threshold = 101;
  EXPECT_EQ(find("critical", 0), index.at(8));
}

TEST_F(IssueSelectionTest, EntryThatIsAbsentLeavesTheListAsItIs) {
  const Issues before = {make_issue({.id = "before"})};
  Issues issues = before;
  tree.find_by_severity(data, issues, "critical", 0);
  EXPECT_EQ(issues, before);
}

TEST_F(IssueSelectionTest, EntryReplacesWhatIsInTheList) {
  const Issue issue = add(24, "id", {});
  Issues issues = {make_issue({.id = "before"})};
  tree.find_by_severity(data, issues, "critical", 0);
  EXPECT_EQ(issues, Issues{issue});
}

TEST_F(IssueSelectionTest, EntryMayBeItsOwnTarget) {
  const Issue issue = add(24, "id", {});
  tree.find_by_severity(data, (*data.issues_by_mask)[24], "critical", 0);
  EXPECT_EQ((*data.issues_by_mask)[24], Issues{issue});
}

TEST_F(IssueSelectionTest, KeepsTheIssuesOfTheDefinitionInTheirOrder) {
  const Issue first = make_issue({.id = "z", .definitions = {"name", "other"}});
  const Issue second = make_issue({.id = "a", .definitions = {"name"}});
  Issues issues = {first, make_issue({.id = "b", .definitions = {"other"}}), second,
                   make_issue({.id = "c"})};
  tree.find_by_fwd(issues, *name->fwd);
  EXPECT_EQ(issues, (Issues{first, second}));
}

TEST_F(IssueSelectionTest, MatchesTheFullNameExactly) {
  const Issue match = make_issue({.id = "id", .definitions = {"a/name"}});
  Issues issues = {match,
                   make_issue({.id = "short", .definitions = {"name"}}),
                   make_issue({.id = "parent", .definitions = {"a"}}),
                   make_issue({.id = "child", .definitions = {"a/name/b"}}),
                   make_issue({.id = "case", .definitions = {"a/Name"}}),
                   make_issue({.id = "blank", .definitions = {"a/name "}}),
                   make_issue({.id = "other parent", .definitions = {"b/name"}})};
  tree.find_by_fwd(issues, *make_definition({.name = "a/name"})->fwd);
  EXPECT_EQ(issues, Issues{match});
}

TEST_F(IssueSelectionTest, FindsByBandTypeCodeAndDefinition) {
  const Issue issue = add(25, "id", {"name"});
  add(25, "other definition", {"other"});
  add(24, "other type", {"name"});
  add(5, "other band", {"name"});
  Issues issues;
  tree.find_by_severity_and_fwd(data, issues, "critical", *name->fwd, 1);
  EXPECT_EQ(issues, Issues{issue});
}

TEST_F(IssueSelectionTest, ListsObservationsOfTheSecondKindBehindThoseOfTheFirst) {
  const Issue second_kind = add(26, "a", {"name"});
  const Issue first_kind = add(25, "z", {"name"});
  const Issue first_kind_too = add(25, "b", {"name"});
  const Issue diagnosis = add(24, "d", {"name"});
  Issues diagnoses = {make_issue({.id = "before"})};
  Issues observations = {make_issue({.id = "before"})};
  EXPECT_EQ(tree.get_details_by_severity(data, diagnoses, observations, "critical", *name->fwd), 0);
  EXPECT_EQ(diagnoses, Issues{diagnosis});
  EXPECT_EQ(observations, (Issues{first_kind, first_kind_too, second_kind}));
}

TEST_F(IssueSelectionTest, EmptiesBothListsWhenThereAreNoIssues) {
  Issues diagnoses = {make_issue({.id = "before"})};
  Issues observations = {make_issue({.id = "before"})};
  EXPECT_EQ(tree.get_details_by_severity(data, diagnoses, observations, "warning", *name->fwd), 0);
  EXPECT_EQ(diagnoses, Issues());
  EXPECT_EQ(observations, Issues());
}

TEST_F(IssueSelectionTest, LeavesTheIndexAsItWas) {
  add(24, "id", {"name"});
  const auto before = *data.issues_by_mask;
  print("name");
  print("other");
  EXPECT_EQ(*data.issues_by_mask, before);
}

TEST_F(IssueSelectionTest, DefinitionWithoutIssuesPrintsNothingAndNoSpacer) {
  add(24, "id", {"other"});
  EXPECT_EQ(print("name"), "");
}

TEST_F(IssueSelectionTest, PrintsTheBandsWorstFirstEachWithItsSpacerTheLastOneToo) {
  add(1, "I", {"name"});
  add(4, "W", {"name"});
  add(25, "C", {"name"});
  EXPECT_EQ(print("name"),
            "|  CRITICAL:\n"
            "|  Observations\n"
            "|  1. C (appears on 0 node)\n"
            "\n"
            "|     Nodes:     none\n"
            "|  \n"
            "|  WARNING:\n"
            "|  Diagnoses\n"
            "|  1. W (appears on 0 node)\n"
            "\n"
            "|     Nodes:                 none\n"
            "|  \n"
            "|  INFORMATIONAL:\n"
            "|  Observations\n"
            "|  1. I (appears on 0 node)\n"
            "\n"
            "|     Nodes:     none\n"
            "|  \n");
}

TEST_F(IssueSelectionTest, BandWithoutIssuesPrintsNothingBetweenOthers) {
  add(24, "C", {"name"});
  add(0, "I", {"name"});
  add(4, "W", {"other"});
  EXPECT_EQ(print("name", ""),
            "CRITICAL:\n"
            "Diagnoses\n"
            "1. C (appears on 0 node)\n"
            "\n"
            "   Nodes:                 none\n"
            "\n"
            "INFORMATIONAL:\n"
            "Diagnoses\n"
            "1. I (appears on 0 node)\n"
            "\n"
            "   Nodes:                 none\n"
            "\n");
}

TEST_F(IssueSelectionTest, IssueOfTwoDefinitionsIsPrintedInFullUnderBoth) {
  add_issue(data, 24,
            make_issue({.id = "id",
                        .message = "text",
                        .remedy = "mend",
                        .nodes = {"n1"},
                        .definitions = {"one", "two"}}));
  const std::string details =
      "|  CRITICAL:\n"
      "|  Diagnoses\n"
      "|  1. id (appears on 1 node)\n"
      "|     Message:               text\n"
      "|     Remedy:                mend\n"
      "|     Nodes:                 n1\n"
      "|  \n";
  EXPECT_EQ(print("one"), details);
  EXPECT_EQ(print("two"), details);
}

TEST_F(IssueSelectionTest, IssueOfAChildIsPrintedUnderItsParentOnlyIfItNamesThatToo) {
  add(24, "child alone", {"parent/child"});
  add(24, "both", {"parent", "parent/child"});
  data.fwd_root->roots = {
      make_definition({.name = "parent"}, {{make_definition({.name = "parent/child"})}})};
  EXPECT_EQ(tree.print_full_tree(data), 0);
  EXPECT_EQ(output.text(),
            "Issues (repeated from above) ordered in the framework definition hierarchy\n"
            "\n"
            "parent: PASS\n"
            "|  CRITICAL:\n"
            "|  Diagnoses\n"
            "|  1. both (appears on 0 node)\n"
            "\n"
            "|     Nodes:                 none\n"
            "|  \n"
            "`-- child: PASS\n"
            "       CRITICAL:\n"
            "       Diagnoses\n"
            "       1. child alone (appears on 0 node)\n"
            "\n"
            "          Nodes:                 none\n"
            "       2. both (appears on 0 node)\n"
            "\n"
            "          Nodes:                 none\n"
            "       \n");
}

// In a process of its own: the lookup adds a row to the band table, which all tests share.
TEST_F(IssueSelectionTest, UnknownBandReadsAsARowOfZeros) {
  for (const unsigned mask : {0U, 16U}) {
    add_issues(data, mask, "id", 1);
  }
  const auto& index = *data.issues_by_mask;
  EXPECT_EXIT(
      {
        const bool without_fail_bit = find("catastrophic", 0) == index.at(0);
        data.fail_threshold = 0;
        const bool with_fail_bit = find("catastrophic", 0) == index.at(16);
        std::_Exit(without_fail_bit && with_fail_bit ? 42 : 1);
      },
      ::testing::ExitedWithCode(42), "");
}

// In a process of its own, too.
TEST_F(IssueSelectionTest, UnknownBandIsARowOfTheTreesTableFromThenOnAndOfNoOther) {
  add_issue(data, 0, make_issue({.id = "id", .nodes = {"n1"}, .definitions = {"name"}}));
  data.fwd_root->roots = {make_definition({.name = "name", .counts = {{0, 1}}})};
  const auto report_with_unknown_band = [this] {
    find("catastrophic", 0);
    EXPECT_EQ(vond_output_log::VondOutputLog(data).run(), 0);
    std::cerr << output.take();
    std::_Exit(0);
  };
  EXPECT_EXIT(report_with_unknown_band(), ::testing::ExitedWithCode(0),
              "Other issues \\(not contributing to FAIL\\)\n"
              "\n"
              "INFORMATIONAL:\n"
              "Diagnoses\n"
              "1. id \\(appears on 1 node\\)\n"
              "   Nodes: n1\n"
              "   Category: FUNCTIONALITY\n"
              "   Framework Definition: name\n"
              "\n"
              "-+\n"
              "Issues \\(repeated from above\\) ordered in the framework definition hierarchy\n"
              "\n"
              "name: PASS\n"
              "   1 INFORMATIONAL     \\(1 diagnosis     0 observation\\)\n"
              "   1 CATASTROPHIC     \\(1 diagnosis     0 observation\\)\n"
              "   \n"
              "   INFORMATIONAL:\n"
              "   Diagnoses\n"
              "   1. id \\(appears on 1 node\\)\n"
              "\n"
              "      Nodes:                 n1\n"
              "   \n"
              "   CATASTROPHIC:\n"
              "   Diagnoses\n"
              "   1. id \\(appears on 1 node\\)\n"
              "\n"
              "      Nodes:                 n1\n"
              "   \n");
}

}  // namespace
}  // namespace vond::test
