#include "vond_metrics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "standalone/libvond_host/current_facts.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/records.h"

namespace vond::test {
namespace {

using standalone::report_facts;
using testing::HasSubstr;
using testing::Not;

class VondMetricsTest : public ::testing::Test {
 protected:
  VondMetricsTest() {
    report_facts() = {};
    report_facts().written_at = 1763699400;
    report_facts().findings_read = 1;
  }
  ~VondMetricsTest() override { report_facts() = {}; }

  /// Returns what the extension writes.
  std::string written() {
    CapturedOutputLog output;
    EXPECT_EQ(vond_metrics::VondMetrics(data).run(), 0);
    return output.text();
  }

  Data data = make_record();
};

TEST_F(VondMetricsTest, OfAnEmptyRecordAreComplete) {
  data.fwd_root.reset();
  data.issues_by_mask.reset();
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("\nvond_report_info{version=\"" VOND_VERSION "\"} 1\n"));
  EXPECT_THAT(text, HasSubstr("\nvond_report_written_timestamp_seconds 1763699400\n"));
  EXPECT_THAT(text, HasSubstr("\nvond_issues_omitted 0\n# EOF\n"));
}

TEST_F(VondMetricsTest, TellTheVerdict) {
  EXPECT_THAT(written(), HasSubstr("\nvond_report_failed 0\n"));
  EXPECT_THAT(written(), HasSubstr("\nvond_report_unknown 0\n"));
  report_facts().lines_rejected = 1;
  EXPECT_THAT(written(), HasSubstr("\nvond_report_failed 0\n"));
  EXPECT_THAT(written(), HasSubstr("\nvond_report_unknown 1\n"));
  report_facts().failed = true;
  EXPECT_THAT(written(), HasSubstr("\nvond_report_failed 1\n"));
  EXPECT_THAT(written(), HasSubstr("\nvond_report_unknown 0\n"));
}

TEST_F(VondMetricsTest, TellOnlyThoseNodesThatTheReportKnows) {
  report_facts().nodes_seen = 4;
  EXPECT_THAT(written(), HasSubstr("\nvond_nodes{state=\"seen\"} 4\n# HELP"));
  report_facts().examination = {.nodes_examined = 5, .not_examined_with_findings = {}};
  EXPECT_THAT(written(), HasSubstr("\nvond_nodes{state=\"examined\"} 5\n# HELP"));
  report_facts().expectation = {
      .nodes_expected = 7, .silent = {"cn1", "cn2"}, .not_expected = {}, .alike = {}};
  EXPECT_THAT(written(), HasSubstr("\nvond_nodes{state=\"seen\"} 4\n"
                                   "vond_nodes{state=\"examined\"} 5\n"
                                   "vond_nodes{state=\"not_examined\"} 2\n"));
}

TEST_F(VondMetricsTest, ExpectedNodesThatAreAllThereAreAZeroAndNoGap) {
  report_facts().expectation = {.nodes_expected = 1, .silent = {}, .not_expected = {}, .alike = {}};
  EXPECT_THAT(written(), HasSubstr("\nvond_nodes{state=\"not_examined\"} 0\n"));
}

TEST_F(VondMetricsTest, TellIssuesAndDefinitions) {
  add_issue(data, 24, make_issue({.id = "disk#sda", .nodes = {"n1", "n2"}}));
  data.fwd_root->roots = {make_definition({.name = "a", .passed = false})};
  const std::string text = written();
  EXPECT_THAT(
      text,
      HasSubstr(
          "\nvond_issues{severity=\"critical\",type=\"diagnosis\",contributes=\"true\"} 1\n"));
  EXPECT_THAT(text, HasSubstr("\nvond_definition_failed{definition=\"a\"} 1\n"));
  EXPECT_THAT(
      text,
      HasSubstr("\nvond_issue_nodes{id=\"disk\",severity=\"critical\",type=\"diagnosis\"} 2\n"));
}

TEST_F(VondMetricsTest, TellHowManyIdsAreLeftOut) {
  add_issues(data, 24, "i", 1002);
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("\nvond_issues_omitted 2\n"));
  EXPECT_THAT(text, Not(HasSubstr("i1001")));
}

}  // namespace
}  // namespace vond::test
