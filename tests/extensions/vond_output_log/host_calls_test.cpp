// What the extension asks of the host's operations: the arguments that a text does not show.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fwd_output.h"
#include "issue_printing.h"
#include "tests/extensions/vond_output_log/fake_host_test.h"
#include "vond_output_log.h"

namespace vond::test {
namespace {

using vond_output_log::FwdOutputFunctions;
using vond_output_log::IssuePrinting;
using vond_output_log::VondOutputLog;

using Wraps = std::vector<std::string>;

class HostCallsTest : public FakeHostTest {
 protected:
  FwdOutputFunctions tree;
  std::string buffer;
};

TEST_F(HostCallsTest, SectionWrapsItsTextsToTheLineWidthWithoutIndent) {
  Data data = make_record();
  data.line_width = 72;
  add_issue(data, 24, nullptr);
  add_issue(data, 25, nullptr);
  EXPECT_EQ(VondOutputLog(data).PrintSection(false), 0);
  // The second is the notice, which is an empty text when there are issues.
  EXPECT_EQ(host().wraps,
            (Wraps{"word_wrap(Issues contributing to FAIL\n, 72, )", "word_wrap(, 72, )",
                   "word_wrap(CRITICAL:\n, 72, )", "word_wrap(Diagnoses\n, 72, )",
                   "word_wrap(Observations\n, 72, )"}));
}

TEST_F(HostCallsTest, EmptySectionWrapsItsNotice) {
  Data data = make_record();
  data.line_width = 72;
  EXPECT_EQ(VondOutputLog(data).PrintSection(true), 0);
  EXPECT_EQ(host().wraps, (Wraps{"word_wrap(Other issues (not contributing to FAIL)\n, 72, )",
                                 "word_wrap(No issues detected.\n\n, 72, )"}));
}

TEST_F(HostCallsTest, IssueWrapsHeaderByWordsAndBodyByColumns) {
  Data data = make_record();
  data.line_width = 60;
  IssuePrinting().PrintOutput(make_issue({.id = "id", .nodes = {"n1"}}), data, 7, 2, "> ", true);
  EXPECT_EQ(host().wraps, (Wraps{"word_wrap(> 7.  id (appears on 1 node)\n, 60, >     )",
                                 "column_wrap(>     <message>\n"
                                 ">     <remedy>\n"
                                 ">     Nodes: [n1;]\n"
                                 ">     Category: FUNCTIONALITY\n"
                                 ">     <Framework Definition>\n"
                                 ", 60, >     :false)"}));
}

TEST_F(HostCallsTest, IssueHandsOverOneNodeListForEachOutput) {
  const Issue issue = make_issue({.id = "id", .nodes = {"n2", "n1", "n2"}});
  add_output(issue, {});
  add_output(issue, {"n1", "n3"});
  IssuePrinting().PrintOutput(issue, make_record(), 1, 1, "", true);
  EXPECT_EQ(output.text(),
            "1. id (appears on 3 nodes)\n"
            "   <message>\n"
            "   <remedy>\n"
            "   Nodes: [n2;n1;n2;][][n1;n3;]\n"
            "   Category: FUNCTIONALITY\n"
            "   <Framework Definition>\n");
}

TEST_F(HostCallsTest, IssueAsksForItsTextsInTheOrderOfItsLines) {
  const Issue issue = make_issue({.id = "id", .nodes = {"n1"}});
  issue->related_issues[postprocessor::Type::OBSERVATION] = {make_issue({.id = "O"})};
  std::vector<std::string> calls;
  host().on_call = [&calls](const std::string& operation) { calls.push_back(operation); };
  IssuePrinting().PrintOutput(issue, make_record(), 1, 1, "", true);
  EXPECT_EQ(calls, (std::vector<std::string>{"word_wrap", "get_message_string", "get_remedy_string",
                                             "get_node_string", "get_usable_id", "get_fwd_string",
                                             "column_wrap"}));
}

TEST_F(HostCallsTest, IssueLivesUntilItIsPrintedThoughTheHostLetsGoOfIt) {
  for (const unsigned mask : {24U, 25U, 26U}) {
    Data data = make_record();
    add_issue(data, mask, make_issue({.id = "id"}));
    const std::weak_ptr<postprocessor::CollapsedAnalysisOutput> issue =
        data.issues_by_mask->at(mask)[0];
    bool gone_at_the_end = true;
    host().on_call = [&](const std::string& operation) {
      if (operation == "get_message_string") {
        data.issues_by_mask->at(mask)[0].reset();
      }
      if (operation == "column_wrap") {
        gone_at_the_end = issue.expired();
      }
    };
    EXPECT_EQ(VondOutputLog(data).PrintSection(false), 0);
    EXPECT_FALSE(gone_at_the_end);
    EXPECT_TRUE(issue.expired());
  }
}

TEST_F(HostCallsTest, ReportAsksForTheNodesOfAnIssueOnce) {
  EXPECT_EQ(run(make_record_with_issues()), 0);
  // Each of the two issues stands in its section and under the definition.
  EXPECT_EQ(host().calls["get_node_string"], 2);
}

TEST_F(HostCallsTest, ReportAsksForTheObservationsOfADiagnosisOnce) {
  EXPECT_EQ(run(make_record_with_issues()), 0);
  // It stands in the section and under the definition.
  EXPECT_EQ(host().calls["get_usable_id"], 1);
  const std::string line = "Based on Observations: usable O";
  EXPECT_NE(output.text().find(line), output.text().rfind(line));
}

TEST_F(HostCallsTest, TreeWrapsItsHeadingToTheLineWidthWithoutIndent) {
  Data data = make_record();
  data.line_width = 72;
  EXPECT_EQ(tree.print_full_tree(data), 0);
  EXPECT_EQ(host().wraps,
            (Wraps{"word_wrap(Issues (repeated from above) ordered in the framework definition "
                   "hierarchy, 72, )"}));
}

TEST_F(HostCallsTest, DefinitionLineIsWrappedBehindItsChildPrefix) {
  Data data = make_record();
  data.line_width = 72;
  const Node node = make_definition({.name = "name"}, {{make_definition({.name = "child"})}});
  EXPECT_EQ(tree.print_tree(data, *node->fwd, "", true), 0);
  EXPECT_EQ(host().wraps, (Wraps{"word_wrap(short name: PASS, 72, |  )",
                                 "word_wrap(`-- short child: PASS, 72,        )"}));
}

TEST_F(HostCallsTest, CountsAreWrappedAtBlanksToTheWidthBesideThePrefixAndThenToTheWidth) {
  const Node node = make_definition({.name = "name", .counts = {{24, 2}, {7, 1}}});
  EXPECT_EQ(tree.print_issue_num(make_record(), buffer, 72, "|  ", "     ", *node->fwd), 0);
  const std::string counts =
      "|  2 CRITICAL     (2 diagnoses     0 observation)\n"
      "|  1 WARNING     (0 diagnosis     1 observation)";
  EXPECT_EQ(host().wraps,
            (Wraps{"space_wrap(" + counts + "\n, 69, )", "word_wrap(" + counts + ", 72, |  )"}));
  EXPECT_EQ(output.text(), counts + "\n|  \n");
  EXPECT_EQ(buffer, counts);
}

TEST_F(HostCallsTest, CountsWrappedBehindAPrefixLongerThanTheWidthHaveWidthZero) {
  const Node node = make_definition({.name = "name", .counts = {{24, 2}}});
  EXPECT_EQ(tree.print_issue_num(make_record(), buffer, 2, "|  ", "     ", *node->fwd), 0);
  ASSERT_EQ(host().wraps.size(), 2U);
  EXPECT_EQ(host().wraps[0],
            "space_wrap(|  2 CRITICAL     (2 diagnoses     0 observation)\n, 0, )");
}

TEST_F(HostCallsTest, DetailsAreWrappedBehindTheirOwnIndents) {
  const Issue issue = make_issue({.id = "id", .message = "text", .nodes = {"n1"}});
  EXPECT_EQ(tree.print_details_by_severity({issue}, {}, "|  ", 72, "critical", buffer), 0);
  const std::string column(23, ' ');
  EXPECT_EQ(host().wraps,
            (Wraps{"word_wrap(|  CRITICAL:, 72, |  )", "word_wrap(|  Diagnoses, 72, |  )",
                   "word_wrap(|  1. id (appears on 1 node), 72, |      )",
                   "word_wrap(|     Message:               text, 72, |     " + column + ")",
                   "word_wrap(|     Nodes:                 [n1;], 72, |     " + column + ")"}));
}

TEST_F(HostCallsTest, HeadersOfTenDetailsContinueOneColumnFurtherBehindShortOrdinals) {
  const std::vector<Issue> issues(10, make_issue_without_outputs());
  EXPECT_EQ(tree.print_fwd_body(buffer, 72, "", issues, false), 0);
  ASSERT_EQ(host().wraps.size(), 11U);
  EXPECT_EQ(host().wraps[0], "word_wrap(Observations, 72, )");
  EXPECT_EQ(host().wraps[1], "word_wrap(1.   (appears on 0 node), 72,      )");
  EXPECT_EQ(host().wraps[9], "word_wrap(9.   (appears on 0 node), 72,      )");
  EXPECT_EQ(host().wraps[10], "word_wrap(10.  (appears on 0 node), 72,     )");
}

TEST_F(HostCallsTest, DetailsUseTheBodyAsTheyGotItWithoutWrappingItAgain) {
  const Issue issue = make_issue({.id = "id", .message = "text"});
  EXPECT_EQ(tree.print_fwd_body(buffer, 72, "", {issue}, true), 0);
  // The group's heading, the header, message and nodes.
  EXPECT_EQ(host().calls["word_wrap"], 4);
  EXPECT_EQ(buffer,
            "   Message:               text\n"
            "   Nodes:                 []");
}

}  // namespace
}  // namespace vond::test
