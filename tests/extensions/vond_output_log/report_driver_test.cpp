#include <gtest/gtest.h>

#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/extensions/vond_output_log/fake_host_test.h"
#include "tests/support/recording_buffer.h"
#include "vond/log/output_log.h"
#include "vond_output_log.h"

namespace vond::test {
namespace {

using log::OutputLog;
using vond_output_log::VondOutputLog;

using Blocks = std::vector<std::pair<std::string, std::string>>;

const std::string EMPTY_FIRST_SECTION =
    "Issues contributing to FAIL\n"
    "No issues detected.\n"
    "\n";
const std::string EMPTY_SECOND_SECTION =
    "Other issues (not contributing to FAIL)\n"
    "No issues detected.\n"
    "\n";
const std::string EMPTY_TREE =
    "Issues (repeated from above) ordered in the framework definition hierarchy\n"
    "\n";
const std::string UP_TO_SUMMARY = "<header>\n" + RULE +
                                  "<print_validation>\n"
                                  "<Summarize>\n";
const std::string UP_TO_TREE =
    UP_TO_SUMMARY + EMPTY_FIRST_SECTION + RULE + EMPTY_SECOND_SECTION + RULE + EMPTY_TREE;

class ReportDriverTest : public FakeHostTest {
 protected:
  static std::vector<std::string> block_names() {
    std::vector<std::string> names;
    for (const auto& [name, text] : host().blocks) {
      names.push_back(name);
    }
    return names;
  }
};

TEST_F(ReportDriverTest, WritesTheReportInItsFixedOrder) {
  EXPECT_EQ(run(make_record()), 0);
  EXPECT_EQ(output.text(), UP_TO_TREE + "<PrintEnd>\n");
  EXPECT_EQ(standard_error.text(), "");
}

TEST_F(ReportDriverTest, WritesSectionsAndTreeWithTheirIssues) {
  Data data = make_record_with_issues();
  add_issue(data, 4, make_issue({.id = "W", .nodes = {"n9"}, .definitions = {"root"}}));
  EXPECT_EQ(run(data), 0);
  EXPECT_EQ(output.text(), UP_TO_SUMMARY +
                               "Issues contributing to FAIL\n"
                               "\n"
                               "CRITICAL:\n"
                               "Diagnoses\n"
                               "1. D (appears on 2 nodes)\n"
                               "   <message>\n"
                               "   <remedy>\n"
                               "   Nodes: [n1;n2;]\n"
                               "   Category: FUNCTIONALITY\n"
                               "   Based on Observations: usable O\n"
                               "   <Framework Definition>\n"
                               "\n"
                               "Observations\n"
                               "1. O (appears on 1 node)\n"
                               "   <message>\n"
                               "   <remedy>\n"
                               "   Nodes: [n1;]\n"
                               "   Category: FUNCTIONALITY\n"
                               "   <Framework Definition>\n"
                               "\n" +
                               RULE +
                               "Other issues (not contributing to FAIL)\n"
                               "\n"
                               "WARNING:\n"
                               "Diagnoses\n"
                               "1. W (appears on 1 node)\n"
                               "   <message>\n"
                               "   <remedy>\n"
                               "   Nodes: [n9;]\n"
                               "   Category: FUNCTIONALITY\n"
                               "   <Framework Definition>\n"
                               "\n" +
                               RULE +
                               "Issues (repeated from above) ordered in the framework definition "
                               "hierarchy\n"
                               "\n"
                               "short root: FAIL\n"
                               "   2 CRITICAL     (1 diagnosis     1 observation)\n"
                               "   \n"
                               "   CRITICAL:\n"
                               "   Diagnoses\n"
                               "   1. D (appears on 2 nodes)\n"
                               "      Message:               message of D\n"
                               "      Remedy:                remedy of D\n"
                               "      Nodes:                 [n1;n2;]\n"
                               "      Based on Observations: usable O\n"
                               "   Observations\n"
                               "   1. O (appears on 1 node)\n"
                               "\n"
                               "      Nodes:     [n1;]\n"
                               "   \n"
                               "   WARNING:\n"
                               "   Diagnoses\n"
                               "   1. W (appears on 1 node)\n"
                               "\n"
                               "      Nodes:                 [n9;]\n"
                               "   \n"
                               "<PrintEnd>\n");
}

TEST_F(ReportDriverTest, EveryStepHasReachedTheOutputsBeforeTheNextBegins) {
  run(make_record());
  EXPECT_EQ(host().blocks, (Blocks{{"print_validation", "<header>\n" + RULE},
                                   {"Summarize", "<header>\n" + RULE + "<print_validation>\n"},
                                   {"PrintEnd", UP_TO_TREE}}));
}

TEST_F(ReportDriverTest, CallsAllBlocksOnOneObjectWithItsOwnRecord) {
  Data data = make_record();
  VondOutputLog extension(data);
  extension.run();
  ASSERT_EQ(host().records.size(), 3U);
  for (std::size_t block = 0; block < 3; ++block) {
    EXPECT_EQ(host().records[block], host().records[0]);
    EXPECT_EQ(host().objects[block], host().objects[0]);
  }
  EXPECT_NE(host().records[0], &data);
}

TEST_F(ReportDriverTest, WritesEachRuleAndTheHeaderAsOneStatement) {
  RecordingBuffer buffer;
  std::ostream stream(&buffer);
  OutputLog::singleton_obj->streams = {{&stream, false}};
  run(make_record());
  ASSERT_GE(buffer.events.size(), 4U);
  EXPECT_EQ(buffer.events[0], "<header>\n");
  EXPECT_EQ(buffer.events[1], RecordingBuffer::FLUSH);
  EXPECT_EQ(buffer.events[2], RULE);
  EXPECT_EQ(buffer.events[3], RecordingBuffer::FLUSH);
}

TEST_F(ReportDriverTest, WritesNoColorCodes) {
  OutputLog::singleton_obj->streams[0].colored = true;
  EXPECT_EQ(run(make_record_with_issues()), 0);
  EXPECT_EQ(output.text().find('\033'), std::string::npos);
}

TEST_F(ReportDriverTest, EmptyHeaderIsNoOutputAtAll) {
  host().header = "";
  RecordingBuffer buffer;
  std::ostream stream(&buffer);
  OutputLog::singleton_obj->streams = {{&stream, false}};
  EXPECT_EQ(run(make_record()), 0);
  ASSERT_FALSE(buffer.events.empty());
  EXPECT_EQ(buffer.events[0], RULE);
}

TEST_F(ReportDriverTest, HeaderWithoutLineEndRunsIntoTheRule) {
  host().header = "header";
  run(make_record());
  EXPECT_EQ(output.text().substr(0, 87), "header" + RULE);
}

TEST_F(ReportDriverTest, EndsWithoutAWordWhenTheSummaryFails) {
  host().summarize_result = 1;
  EXPECT_EQ(run(make_record()), 1);
  EXPECT_EQ(output.text(), UP_TO_SUMMARY);
  EXPECT_EQ(standard_error.text(), "");
  EXPECT_EQ(block_names(), (std::vector<std::string>{"print_validation", "Summarize"}));
}

TEST_F(ReportDriverTest, GoesOnAfterAnyOtherResultOfTheSummary) {
  for (const int result : {2, -1, 256}) {
    host().summarize_result = result;
    EXPECT_EQ(run(make_record()), 0) << result;
    EXPECT_EQ(output.take(), UP_TO_TREE + "<PrintEnd>\n") << result;
  }
}

TEST_F(ReportDriverTest, DoesNotLookAtTheResultOfTheEndBlock) {
  host().print_end_result = 1;
  EXPECT_EQ(run(make_record()), 0);
}

TEST_F(ReportDriverTest, EndsWhenTheFirstSectionFails) {
  Data data = make_record();
  data.counts_by_mask.erase(16);
  EXPECT_EQ(run(data), 1);
  EXPECT_EQ(output.text(), UP_TO_SUMMARY + "Issues contributing to FAIL\n");
  EXPECT_EQ(standard_error.text(), "Error getting number of issues.\n");
  EXPECT_EQ(block_names(), (std::vector<std::string>{"print_validation", "Summarize"}));
}

TEST_F(ReportDriverTest, EndsWhenTheSecondSectionFails) {
  Data data = make_record();
  data.counts_by_mask.erase(3);
  EXPECT_EQ(run(data), 1);
  EXPECT_EQ(output.text(), UP_TO_SUMMARY + EMPTY_FIRST_SECTION + RULE +
                               "Other issues (not contributing to FAIL)\n");
  EXPECT_EQ(standard_error.text(), "Error getting number of issues.\n");
}

TEST_F(ReportDriverTest, LeavesTheEndBlockOutWhenTheTreeFails) {
  Data data = make_record();
  // An issue of the tree alone: the sections' counts stay 0.
  (*data.issues_by_mask)[24] = {make_issue({.id = "D", .message = "m", .definitions = {"root"}})};
  data.fwd_root->roots = {make_definition({.name = "root"}), make_definition({.name = "other"})};
  host().unwrappable_text = "Message:";
  EXPECT_EQ(run(data), 1);
  EXPECT_EQ(output.text(), UP_TO_TREE +
                               "short root: PASS\n"
                               "   CRITICAL:\n"
                               "   Diagnoses\n"
                               "   1. D (appears on 0 node)\n");
  EXPECT_EQ(standard_error.text(), "wrapping failed\n");
  EXPECT_EQ(block_names(), (std::vector<std::string>{"print_validation", "Summarize"}));
}

TEST_F(ReportDriverTest, RunsAllStepsWithoutDestinations) {
  OutputLog::singleton_obj->streams.clear();
  EXPECT_EQ(run(make_record()), 0);
  EXPECT_EQ(block_names(), (std::vector<std::string>{"print_validation", "Summarize", "PrintEnd"}));
  EXPECT_EQ(output.text(), "");
  host().summarize_result = 1;
  EXPECT_EQ(run(make_record()), 1);
}

TEST_F(ReportDriverTest, MakesTheSharedObjectWhenTheHostHasNot) {
  OutputLog::singleton_obj.reset();
  // Blocks look at the destinations; without the object the header's statement comes first.
  EXPECT_EQ(run(make_record()), 0);
  ASSERT_NE(OutputLog::singleton_obj, nullptr);
  EXPECT_TRUE(OutputLog::singleton_obj->streams.empty());
}

TEST_F(ReportDriverTest, KeepsNothingBetweenRuns) {
  Data data = make_record_with_issues();
  VondOutputLog extension(data);
  EXPECT_EQ(extension.run(), 0);
  const std::string first = output.take();
  EXPECT_EQ(extension.run(), 0);
  EXPECT_EQ(output.take(), first);
}

TEST_F(ReportDriverTest, ConstructionAndDestructionWriteNothing) {
  Data data = make_record_with_issues();
  { const VondOutputLog extension(data); }
  EXPECT_EQ(output.text(), "");
  EXPECT_EQ(standard_error.text(), "");
  EXPECT_TRUE(host().calls.empty());
}

/// An operation of the host that fails during the report.
class ReportDriverExceptionTest : public FakeHostTest,
                                  public ::testing::WithParamInterface<const char*> {};

TEST_P(ReportDriverExceptionTest, LeavesTheReport) {
  host().failing_operation = GetParam();
  std::string caught;
  try {
    run(make_record_with_issues());
  } catch (const std::runtime_error& error) {
    caught = error.what();
  }
  EXPECT_EQ(caught, std::string(GetParam()) + " failed");
  EXPECT_EQ(standard_error.text(), "");
  EXPECT_EQ(output.text().find("<PrintEnd>"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Of, ReportDriverExceptionTest,
                         ::testing::Values("format_header", "print_validation", "Summarize",
                                           "PrintEnd", "GetDigits", "get_usable_id",
                                           "get_node_string", "get_short_name", "remove_endl",
                                           "get_message_string", "get_remedy_string",
                                           "get_fwd_string", "word_wrap", "column_wrap",
                                           "space_wrap", "upper", "rstrip"),
                         [](const auto& test) { return std::string(test.param); });

TEST_F(ReportDriverTest, KeepsWhatWasWrittenBeforeAnException) {
  host().failing_operation = "Summarize";
  EXPECT_THROW(run(make_record()), std::runtime_error);
  EXPECT_EQ(output.text(), "<header>\n" + RULE + "<print_validation>\n");
}

TEST_F(ReportDriverTest, WritesTheReportAfterAnException) {
  host().failing_operation = "word_wrap";
  EXPECT_THROW(run(make_record()), std::runtime_error);
  output.take();
  EXPECT_EQ(run(make_record()), 0);
  EXPECT_EQ(output.text(), UP_TO_TREE + "<PrintEnd>\n");
}

}  // namespace
}  // namespace vond::test
