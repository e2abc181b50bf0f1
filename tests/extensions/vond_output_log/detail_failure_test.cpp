#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "fwd_output.h"
#include "tests/extensions/vond_output_log/fake_host_test.h"
#include "vond/log/error_log.h"

namespace vond::test {
namespace {

using vond_output_log::FwdOutputFunctions;

class DetailFailureTest : public FakeHostTest {
 protected:
  FwdOutputFunctions tree;
  std::string buffer = "before";

  static Issue full_issue() {
    Issue issue =
        make_issue({.id = "id", .message = "message", .remedy = "remedy", .nodes = {"n1"}});
    issue->related_issues[postprocessor::Type::OBSERVATION] = {make_issue({.id = "other"})};
    return issue;
  }

  int format_body(const Issue& issue) {
    return tree.format_fwd_body(buffer, "   ", std::string(23, ' '), 0, issue, true);
  }
};

TEST_F(DetailFailureTest, SegmentWithALabelOfItsColumnsWidthFailsSilentlyAndIsEmpty) {
  EXPECT_EQ(tree.format_fwd_segment(buffer, "", "12345678", "Message:", "text", 0), 1);
  EXPECT_EQ(buffer, "");
  EXPECT_EQ(standard_error.text(), "");
  EXPECT_TRUE(host().wraps.empty());
}

TEST_F(DetailFailureTest, SegmentWithALabelWiderThanItsColumnFailsSilentlyAndIsEmpty) {
  EXPECT_EQ(tree.format_fwd_segment(buffer, "", "", "Message:", "text", 0), 1);
  EXPECT_EQ(buffer, "");
  EXPECT_EQ(standard_error.text(), "");
}

TEST_F(DetailFailureTest, SegmentWithALabelOneShorterThanItsColumnIsWritten) {
  EXPECT_EQ(tree.format_fwd_segment(buffer, "> ", "123456789", "Message:", "text", 0), 0);
  EXPECT_EQ(buffer, "> Message: text");
}

TEST_F(DetailFailureTest, SegmentReportsAnExceptionOfTheWrapping) {
  host().unwrappable_text = "text";
  EXPECT_EQ(tree.format_fwd_segment(buffer, "", std::string(23, ' '), "Message:", "text", 0), 1);
  EXPECT_EQ(standard_error.text(), "wrapping failed\n");
}

TEST_F(DetailFailureTest, SegmentsReportIsDroppedBelowTheErrorLevel) {
  log::LOG_LEVEL = 2;
  host().unwrappable_text = "text";
  EXPECT_EQ(tree.format_fwd_segment(buffer, "", std::string(23, ' '), "Message:", "text", 0), 1);
  EXPECT_EQ(standard_error.text(), "");
  log::LOG_LEVEL = 3;
  EXPECT_EQ(tree.format_fwd_segment(buffer, "", std::string(23, ' '), "Message:", "text", 0), 1);
  EXPECT_EQ(standard_error.text(), "wrapping failed\n");
}

TEST_F(DetailFailureTest, SegmentLetsPassWhatIsNoStandardException) {
  host().text_that_throws_an_int = "text";
  EXPECT_THROW(tree.format_fwd_segment(buffer, "", std::string(23, ' '), "Message:", "text", 0),
               int);
  EXPECT_EQ(standard_error.text(), "");
}

TEST_F(DetailFailureTest, BodyKeepsItsBufferWhenTheMessageFails) {
  host().unwrappable_text = "Message:";
  EXPECT_EQ(format_body(full_issue()), 1);
  EXPECT_EQ(buffer, "before");
  EXPECT_EQ(standard_error.text(), "wrapping failed\n");
}

TEST_F(DetailFailureTest, BodyKeepsTheMessageWhenTheRemedyFails) {
  host().unwrappable_text = "Remedy:";
  EXPECT_EQ(format_body(full_issue()), 1);
  EXPECT_EQ(buffer, "   Message:               message");
}

TEST_F(DetailFailureTest, BodyKeepsTheSegmentsBeforeTheNodesWhenTheyFail) {
  host().unwrappable_text = "Nodes:";
  EXPECT_EQ(format_body(full_issue()), 1);
  EXPECT_EQ(buffer,
            "   Message:               message\n"
            "   Remedy:                remedy");
}

TEST_F(DetailFailureTest, BodyKeepsTheSegmentsBeforeTheCrossReferenceWhenItFails) {
  host().unwrappable_text = "Based on Observations:";
  EXPECT_EQ(format_body(full_issue()), 1);
  EXPECT_EQ(buffer,
            "   Message:               message\n"
            "   Remedy:                remedy\n"
            "   Nodes:                 [n1;]");
}

TEST_F(DetailFailureTest, GroupKeepsWhatIsWrittenAndLeavesLaterIssuesOut) {
  const std::vector<Issue> issues = {make_issue({.id = "A", .message = "good"}),
                                     make_issue({.id = "B", .message = "bad"}),
                                     make_issue({.id = "C", .message = "good"})};
  host().unwrappable_text = "bad";
  EXPECT_EQ(tree.print_fwd_body(buffer, 0, "|  ", issues, true), 1);
  EXPECT_EQ(output.text(),
            "|  Diagnoses\n"
            "|  1. A (appears on 0 node)\n"
            "|     Message:               good\n"
            "|     Nodes:                 []\n"
            "|  2. B (appears on 0 node)\n");
  EXPECT_EQ(standard_error.text(), "wrapping failed\n");
}

TEST_F(DetailFailureTest, BandLeavesTheObservationsOutWhenTheDiagnosesFail) {
  host().unwrappable_text = "bad";
  EXPECT_EQ(tree.print_details_by_severity({make_issue({.id = "D", .message = "bad"})},
                                           {make_issue({.id = "O"})}, "", 0, "warning", buffer),
            1);
  EXPECT_EQ(output.text(),
            "WARNING:\n"
            "Diagnoses\n"
            "1. D (appears on 0 node)\n");
}

TEST_F(DetailFailureTest, BandFailsWithItsObservations) {
  host().unwrappable_text = "bad";
  EXPECT_EQ(tree.print_details_by_severity({}, {make_issue({.id = "O", .message = "bad"})}, "", 0,
                                           "warning", buffer),
            1);
  EXPECT_EQ(output.text(),
            "WARNING:\n"
            "Observations\n"
            "1. O (appears on 0 node)\n");
}

/// A tree of two roots, the first of which has two children; one issue of the first child has a
/// message that cannot be wrapped.
Data make_record_with_bad_message() {
  Data data = make_record();
  (*data.issues_by_mask)[24] = {make_issue({.id = "A", .message = "bad", .definitions = {"first"}}),
                                make_issue({.id = "B", .definitions = {"second"}})};
  (*data.issues_by_mask)[4] = {make_issue({.id = "C", .definitions = {"first"}})};
  data.fwd_root->roots = {
      make_definition({.name = "root"}, {{make_definition({.name = "first", .passed = false}),
                                          make_definition({.name = "second"})}}),
      make_definition({.name = "other"})};
  return data;
}

TEST_F(DetailFailureTest, DefinitionLeavesLaterBandsAndItsSpacerOut) {
  const Data data = make_record_with_bad_message();
  host().unwrappable_text = "bad";
  EXPECT_EQ(tree.print_details(data, *make_definition({.name = "first"})->fwd, "|  ", 0, buffer),
            1);
  EXPECT_EQ(output.text(),
            "|  CRITICAL:\n"
            "|  Diagnoses\n"
            "|  1. A (appears on 0 node)\n");
}

TEST_F(DetailFailureTest, TreeEndsWithoutLaterSiblingsAndRoots) {
  host().unwrappable_text = "bad";
  EXPECT_EQ(tree.print_full_tree(make_record_with_bad_message()), 1);
  EXPECT_EQ(output.text(),
            "Issues (repeated from above) ordered in the framework definition hierarchy\n"
            "\n"
            "short root: PASS\n"
            "|-- short first: FAIL\n"
            "|      CRITICAL:\n"
            "|      Diagnoses\n"
            "|      1. A (appears on 0 node)\n");
  EXPECT_EQ(standard_error.text(), "wrapping failed\n");
}

/// An operation of the host that the tree calls outside the functions that catch.
class TreeExceptionTest : public FakeHostTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(TreeExceptionTest, LeavesTheTree) {
  const Data data = make_record_with_issues();
  host().failing_operation = GetParam();
  EXPECT_THROW(FwdOutputFunctions().print_full_tree(data), std::runtime_error);
  EXPECT_EQ(standard_error.text(), "");
}

INSTANTIATE_TEST_SUITE_P(Of, TreeExceptionTest,
                         ::testing::Values("get_usable_id", "get_node_string", "get_short_name",
                                           "remove_endl", "space_wrap", "upper", "rstrip",
                                           "word_wrap"),
                         [](const auto& test) { return std::string(test.param); });

TEST_F(DetailFailureTest, ExceptionWhileAHeaderIsWrappedLeavesTheTree) {
  const Data data = make_record_with_issues();
  host().unwrappable_text = "D (appears on 2 nodes)";
  EXPECT_THROW(tree.print_full_tree(data), std::runtime_error);
  EXPECT_EQ(standard_error.text(), "");
}

TEST_F(DetailFailureTest, ExceptionWhileCountsAreWrappedLeavesTheTree) {
  const Data data = make_record_with_issues();
  host().unwrappable_text = "2 CRITICAL";
  EXPECT_THROW(tree.print_full_tree(data), std::runtime_error);
  EXPECT_EQ(standard_error.text(), "");
}

}  // namespace
}  // namespace vond::test
