#include <string>
#include <vector>

#include "tests/extensions/vond_output_log/text_test.h"

namespace vond::test {
namespace {

using postprocessor::Type;

using Issues = std::vector<Issue>;

class DetailBlockTest : public TextTest {
 protected:
  std::string print(const Issues& diagnoses, const Issues& observations,
                    const std::string& prefix = "") {
    EXPECT_EQ(
        tree.print_details_by_severity(diagnoses, observations, prefix, 0, "critical", buffer), 0);
    return output.take();
  }

  std::string header(const Issue& issue, int ordinal = 1, const std::string& pad = "") {
    EXPECT_EQ(tree.format_fwd_header(buffer, ordinal, "|  ", pad, issue), 0);
    return buffer;
  }

  std::string body(const Issue& issue, bool is_diagnosis) {
    std::string spacer;
    tree.format_fwd_spacer(spacer, is_diagnosis);
    EXPECT_EQ(tree.format_fwd_body(buffer, "|     ", spacer, 0, issue, is_diagnosis), 0);
    return buffer;
  }
};

TEST_F(DetailBlockTest, WithoutIssuesIsNothingAtAll) { EXPECT_EQ(print({}, {}), ""); }

TEST_F(DetailBlockTest, HasDiagnosesAndThenObservationsBehindThePrefix) {
  const Issue diagnosis =
      make_issue({.id = "D", .message = "broken", .remedy = "mend", .nodes = {"n1", "n2"}});
  const Issue observation =
      make_issue({.id = "O", .message = "seen", .remedy = "look", .nodes = {"n1"}});
  relate(diagnosis, observation);
  EXPECT_EQ(print({diagnosis}, {observation}, "|   |  "),
            "|   |  CRITICAL:\n"
            "|   |  Diagnoses\n"
            "|   |  1. D (appears on 2 nodes)\n"
            "|   |     Message:               broken\n"
            "|   |     Remedy:                mend\n"
            "|   |     Nodes:                 n[1-2]\n"
            "|   |     Based on Observations: O\n"
            "|   |  Observations\n"
            "|   |  1. O (appears on 1 node)\n"
            "|   |     Message:   seen\n"
            "|   |     Remedy:    look\n"
            "|   |     Nodes:     n1\n"
            "|   |     Diagnoses: D\n");
  forget_relations({diagnosis, observation});
}

TEST_F(DetailBlockTest, WithObservationsAloneHasTheBandDirectlyBeforeThem) {
  EXPECT_EQ(print({}, {make_issue({.id = "O", .message = "seen"})}),
            "CRITICAL:\n"
            "Observations\n"
            "1. O (appears on 0 node)\n"
            "   Message:   seen\n"
            "   Nodes:     none\n");
}

TEST_F(DetailBlockTest, GroupWithoutIssuesIsItsHeading) {
  EXPECT_EQ(tree.print_fwd_body(buffer, 0, "|  ", {}, true), 0);
  EXPECT_EQ(output.take(), "|  Diagnoses\n");
  EXPECT_EQ(tree.print_fwd_body(buffer, 0, "|  ", {}, false), 0);
  EXPECT_EQ(output.take(), "|  Observations\n");
}

TEST_F(DetailBlockTest, UpToNineOrdinalsAreFollowedByOneBlank) {
  const Issues issues(9, make_issue({.id = "id", .message = "m"}));
  const std::string text = print(issues, {}, "|  ");
  const std::string issue =
      ". id (appears on 0 node)\n"
      "|     Message:               m\n"
      "|     Nodes:                 none\n";
  std::string expected = "|  CRITICAL:\n|  Diagnoses\n";
  for (int ordinal = 1; ordinal <= 9; ++ordinal) {
    expected += "|  " + std::to_string(ordinal) + issue;
  }
  EXPECT_EQ(text, expected);
}

TEST_F(DetailBlockTest, TenOrdinalsBeginTheirIdsInOneColumn) {
  const Issues issues(10, make_issue({.id = "id", .message = "m"}));
  const std::string text = print({}, issues, "|  ");
  std::string expected = "|  CRITICAL:\n|  Observations\n";
  for (int ordinal = 1; ordinal <= 10; ++ordinal) {
    expected += "|  " + std::to_string(ordinal) + (ordinal < 10 ? ".  " : ". ") +
                "id (appears on 0 node)\n"
                "|      Message:   m\n"
                "|      Nodes:     none\n";
  }
  EXPECT_EQ(text, expected);
}

TEST_F(DetailBlockTest, HundredOrdinalsBeginTheirIdsInOneColumn) {
  const Issues issues(100, make_issue({.id = "id", .message = "m"}));
  const std::string text = print(issues, {});
  std::string expected = "CRITICAL:\nDiagnoses\n";
  for (int ordinal = 1; ordinal <= 100; ++ordinal) {
    std::string number = std::to_string(ordinal) + ".";
    number.resize(5, ' ');
    expected += number +
                "id (appears on 0 node)\n"
                "     Message:               m\n"
                "     Nodes:                 none\n";
  }
  EXPECT_EQ(text, expected);
}

TEST_F(DetailBlockTest, OrdinalsRestartInEveryGroup) {
  const Issue issue = make_issue_without_outputs();
  EXPECT_EQ(print({issue, issue}, {issue}),
            "CRITICAL:\n"
            "Diagnoses\n"
            "1.  (appears on 0 node)\n"
            "\n"
            "2.  (appears on 0 node)\n"
            "\n"
            "Observations\n"
            "1.  (appears on 0 node)\n"
            "\n");
}

TEST_F(DetailBlockTest, HeaderIsPrefixOrdinalPadIdAndNodes) {
  EXPECT_EQ(header(make_issue({.id = "id#q", .nodes = {"n1", "n2"}}), 7, "  "),
            "|  7.   id#q (appears on 2 nodes)");
}

TEST_F(DetailBlockTest, HeaderCountsNoneAndOneNodeInTheSingular) {
  EXPECT_EQ(header(make_issue({.id = "id"})), "|  1. id (appears on 0 node)");
  EXPECT_EQ(header(make_issue({.id = "id", .nodes = {"n1"}})), "|  1. id (appears on 1 node)");
  EXPECT_EQ(header(make_issue({.id = "id", .nodes = {"n1", "n2"}})),
            "|  1. id (appears on 2 nodes)");
}

TEST_F(DetailBlockTest, HeaderCountsANodeOfTwoOutputsOnce) {
  const Issue issue = make_issue({.id = "id", .nodes = {"n1"}});
  add_output(issue, {"n1"});
  EXPECT_EQ(header(issue), "|  1. id (appears on 1 node)");
  add_output(issue, {"n2", "n1"});
  EXPECT_EQ(header(issue), "|  1. id (appears on 2 nodes)");
}

TEST_F(DetailBlockTest, HeaderOfAnIssueWithoutOutputsHasNoId) {
  EXPECT_EQ(header(make_issue_without_outputs()), "|  1.  (appears on 0 node)");
}

TEST_F(DetailBlockTest, LabelColumnIsOneWiderThanTheLongestLabel) {
  std::string spacer = "before";
  tree.format_fwd_spacer(spacer, true);
  EXPECT_EQ(spacer, std::string(23, ' '));
  tree.format_fwd_spacer(spacer, false);
  EXPECT_EQ(spacer, std::string(11, ' '));
}

TEST_F(DetailBlockTest, SegmentIsIndentLabelColumnAndText) {
  EXPECT_EQ(tree.format_fwd_segment(buffer, "|  ", std::string(11, ' '), "Nodes:", "n1", 0), 0);
  EXPECT_EQ(buffer, "|  Nodes:     n1");
}

TEST_F(DetailBlockTest, SegmentContinuesUnderItsText) {
  EXPECT_EQ(tree.format_fwd_segment(buffer, "|  ", std::string(11, ' '),
                                    "Message:", "one two three four five six seven", 34),
            0);
  EXPECT_EQ(buffer,
            "|  Message:   one two three four\n"
            "|             five six seven");
}

TEST_F(DetailBlockTest, LongMessageContinuesUnderItsTextNeverUnderItsLabel) {
  const Issue issue = make_issue(
      {.id = "id", .message = "one two\nthree\n\nfour five six seven eight", .nodes = {"n1"}});
  EXPECT_EQ(tree.print_details_by_severity({}, {issue}, "|  ", 40, "warning", buffer), 0);
  EXPECT_EQ(output.take(),
            "|  WARNING:\n"
            "|  Observations\n"
            "|  1. id (appears on 1 node)\n"
            "|     Message:   one two three four five\n"
            "|                six seven eight\n"
            "|     Nodes:     n1\n");
}

TEST_F(DetailBlockTest, BodyJoinsItsSegmentsByLineEnds) {
  EXPECT_EQ(body(make_issue({.id = "id", .message = "m", .remedy = "r", .nodes = {"n1"}}), true),
            "|     Message:               m\n"
            "|     Remedy:                r\n"
            "|     Nodes:                 n1");
}

TEST_F(DetailBlockTest, BodyTakesMessageAndRemedyOfTheFirstOutputAndNodesOfAll) {
  const Issue issue = make_issue({.id = "id", .message = "m", .remedy = "r", .nodes = {"n1"}});
  add_output(issue, {"n2"});
  EXPECT_EQ(body(issue, false),
            "|     Message:   m\n"
            "|     Remedy:    r\n"
            "|     Nodes:     n[1-2]");
}

TEST_F(DetailBlockTest, BodyWithoutMessageBeginsWithAnEmptyLine) {
  EXPECT_EQ(body(make_issue({.id = "id", .remedy = "r"}), true),
            "\n"
            "|     Remedy:                r\n"
            "|     Nodes:                 none");
}

TEST_F(DetailBlockTest, BodyWhoseMessageIsLineEndsAloneHasNoMessage) {
  EXPECT_EQ(body(make_issue({.id = "id", .message = "\n\r\n", .remedy = "\n"}), true),
            "\n"
            "|     Nodes:                 none");
}

TEST_F(DetailBlockTest, BodyWithoutRemedyHasNoLineForIt) {
  EXPECT_EQ(body(make_issue({.id = "id", .message = "m"}), true),
            "|     Message:               m\n"
            "|     Nodes:                 none");
}

TEST_F(DetailBlockTest, BodyOfAnIssueWithoutOutputsIsEmpty) {
  buffer = "before";
  EXPECT_EQ(body(make_issue_without_outputs(), true), "");
}

TEST_F(DetailBlockTest, BodyOfAnIssueWithoutOutputsMayStillHaveItsCrossReference) {
  const Issue issue = make_issue_without_outputs();
  issue->related_issues[Type::OBSERVATION] = {make_issue({.id = "O"})};
  EXPECT_EQ(body(issue, true),
            "\n"
            "|     Based on Observations: O");
}

TEST_F(DetailBlockTest, RelatedSetThatIsEmptyHasNoLine) {
  const Issue issue = make_issue({.id = "id", .message = "m"});
  issue->related_issues = {{Type::DIAGNOSIS, {}}, {Type::OBSERVATION, {}}};
  EXPECT_EQ(body(issue, true),
            "|     Message:               m\n"
            "|     Nodes:                 none");
  EXPECT_EQ(body(issue, false),
            "|     Message:   m\n"
            "|     Nodes:     none");
}

TEST_F(DetailBlockTest, DiagnosisListsPresentableIdsOnceAndInByteOrder) {
  const Issue issue = make_issue_without_outputs();
  for (const char* id : {"b", "c#2", "Z", "c#1", "a"}) {
    issue->related_issues[Type::OBSERVATION].insert(make_issue({.id = id}));
  }
  issue->related_issues[Type::DIAGNOSIS] = {make_issue({.id = "never shown"})};
  EXPECT_EQ(body(issue, true),
            "\n"
            "|     Based on Observations: Z, a, b, c");
}

/// Returns issues with these ids that lie in memory, and so in every set, in this order.
Issues issues_by_address(const std::vector<std::string>& ids) {
  auto block = std::make_shared<std::vector<postprocessor::CollapsedAnalysisOutput>>(ids.size());
  Issues issues;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    (*block)[i].outputs = make_issue({.id = ids[i]})->outputs;
    issues.emplace_back(block, &(*block)[i]);
  }
  return issues;
}

TEST_F(DetailBlockTest, ObservationListsRawIdsInTheOrderOfTheSet) {
  const Issues diagnoses = issues_by_address({"b", "c#2", "Z", "c#1", "a"});
  const Issue issue = make_issue_without_outputs();
  issue->related_issues[Type::DIAGNOSIS] = {diagnoses.rbegin(), diagnoses.rend()};
  issue->related_issues[Type::OBSERVATION] = {make_issue({.id = "never shown"})};
  EXPECT_EQ(body(issue, false),
            "\n"
            "|     Diagnoses: b, c#2, Z, c#1, a");
}

TEST_F(DetailBlockTest, ObservationListsTheIdOfTwoDiagnosesTwice) {
  const Issues diagnoses = issues_by_address({"same", "same"});
  const Issue issue = make_issue_without_outputs();
  issue->related_issues[Type::DIAGNOSIS] = {diagnoses.begin(), diagnoses.end()};
  EXPECT_EQ(body(issue, false),
            "\n"
            "|     Diagnoses: same, same");
}

TEST_F(DetailBlockTest, BufferHoldsTheLastTextThatWasFormatted) {
  print({make_issue({.id = "id", .message = "m"})}, {});
  EXPECT_EQ(buffer,
            "   Message:               m\n"
            "   Nodes:                 none");
}

}  // namespace
}  // namespace vond::test
