#include "vond_junit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "standalone/libvond_host/current_facts.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/records.h"

namespace vond::test {
namespace {

using standalone::report_facts;
using testing::HasSubstr;
using testing::Not;

const std::string QUIET_REPORT =
    "  <testsuite name=\"vond-report\" tests=\"2\" failures=\"0\" errors=\"0\" skipped=\"0\" "
    "timestamp=\"2025-11-21T04:30:00Z\">\n"
    "    <testcase classname=\"vond-report\" name=\"coverage\"/>\n"
    "    <testcase classname=\"vond-report\" name=\"unassigned issues\"/>\n"
    "  </testsuite>\n"
    "</testsuites>\n";

class VondJunitTest : public ::testing::Test {
 protected:
  VondJunitTest() {
    report_facts() = {};
    report_facts().written_at = 1763699400;
    report_facts().findings_read = 1;
  }
  ~VondJunitTest() override { report_facts() = {}; }

  /// Returns what the extension writes.
  std::string written() {
    CapturedOutputLog output;
    EXPECT_EQ(vond_junit::VondJunit(data).run(), 0);
    return output.text();
  }

  Data data = make_record();
};

TEST_F(VondJunitTest, OfAnEmptyRecordHasTheTestsOfTheReport) {
  data.fwd_root.reset();
  data.issues_by_mask.reset();
  EXPECT_EQ(written(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<testsuites name=\"vond-report\" tests=\"2\" failures=\"0\" errors=\"0\" "
            "skipped=\"0\">\n" +
                QUIET_REPORT);
}

TEST_F(VondJunitTest, HasATestForEachDefinition) {
  data.fwd_root->roots = {make_definition(
      {.name = "r", .passed = false},
      {{make_definition({.name = "r/a", .passed = false}),
        make_definition({.name = "r/b", .skipped = true}), make_definition({.name = "r/c"})}})};
  add_issue(data, 24,
            make_issue({.id = "i", .message = "m", .nodes = {"n1"}, .definitions = {"r/a"}}));
  EXPECT_EQ(written(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<testsuites name=\"vond-report\" tests=\"6\" failures=\"2\" errors=\"0\" "
            "skipped=\"1\">\n"
            "  <testsuite name=\"r\" tests=\"4\" failures=\"2\" errors=\"0\" skipped=\"1\" "
            "timestamp=\"2025-11-21T04:30:00Z\">\n"
            "    <testcase classname=\"r\" name=\"r\">\n"
            "      <failure type=\"CRITICAL\" message=\"1 definition below fails\">FAIL r/a\n"
            "</failure>\n"
            "    </testcase>\n"
            "    <testcase classname=\"r\" name=\"a\">\n"
            "      <failure type=\"CRITICAL\" message=\"1 issue contributes to FAIL: i\">CRITICAL "
            "diagnosis i (1 node: n1): m\n"
            "</failure>\n"
            "    </testcase>\n"
            "    <testcase classname=\"r\" name=\"b\">\n"
            "      <skipped/>\n"
            "    </testcase>\n"
            "    <testcase classname=\"r\" name=\"c\"/>\n"
            "  </testsuite>\n" +
                QUIET_REPORT);
}

TEST_F(VondJunitTest, DoubtsOfTheVerdictAreAnErrorThatNamesTheMissingNodes) {
  report_facts().lines_rejected = 3;
  report_facts().examination = {.nodes_examined = 1, .not_examined_with_findings = {}};
  report_facts().expectation = {
      .nodes_expected = 3, .silent = {"cn1", "cn2"}, .not_expected = {}, .alike = {}};
  const std::string text = written();
  EXPECT_THAT(text, HasSubstr("tests=\"2\" failures=\"0\" errors=\"1\" skipped=\"0\">\n"));
  EXPECT_THAT(text,
              HasSubstr("    <testcase classname=\"vond-report\" name=\"coverage\">\n"
                        "      <error type=\"doubt\" message=\"2 of 3 expected nodes were not "
                        "examined; 3 lines of input were left out\">2 of 3 expected nodes "
                        "were not examined\n"
                        "3 lines of input were left out\n"
                        "nodes: cn[1-2]\n"
                        "</error>\n"
                        "    </testcase>\n"));
}

TEST_F(VondJunitTest, ReportThatFailsMayHaveDoubtsToo) {
  report_facts().failed = true;
  report_facts().lines_rejected = 1;
  add_issue(data, 24, make_issue({.id = "i"}));
  EXPECT_THAT(written(), HasSubstr("tests=\"2\" failures=\"1\" errors=\"1\" skipped=\"0\">\n"));
}

TEST_F(VondJunitTest, IssuesWithoutADefinitionFailATestOfTheirOwn) {
  add_issue(data, 25, make_issue({.id = "i"}));
  add_issue(data, 24, make_issue({.id = "unknown", .definitions = {"x"}}));
  add_issue(data, 1, make_issue({.id = "harmless"}));
  const std::string text = written();
  EXPECT_THAT(text,
              HasSubstr("    <testcase classname=\"vond-report\" name=\"unassigned issues\">\n"
                        "      <failure type=\"CRITICAL\" message=\"2 issues contribute to "
                        "FAIL: unknown, i\">CRITICAL diagnosis unknown\n"
                        "CRITICAL observation i\n"
                        "</failure>\n"));
  EXPECT_THAT(text, Not(HasSubstr("harmless")));
}

// A skipped definition does not fail, and neither does what is above it.
TEST_F(VondJunitTest, IssuesOfSkippedDefinitionsAloneAreUnassigned) {
  data.fwd_root->roots = {make_definition({.name = "s", .skipped = true}),
                          make_definition({.name = "f", .passed = false})};
  add_issue(data, 24, make_issue({.id = "i", .definitions = {"s"}}));
  add_issue(data, 24, make_issue({.id = "j", .definitions = {"f", "s"}}));
  EXPECT_THAT(written(),
              HasSubstr("message=\"1 issue contributes to FAIL: i\">CRITICAL diagnosis i\n<"));
}

TEST_F(VondJunitTest, NamesAreHarmless) {
  data.fwd_root->roots = {make_definition({.name = "<\"a\">\x01\xFF"})};
  EXPECT_THAT(written(), HasSubstr("classname=\"&lt;&quot;a&quot;&gt;\uFFFD\uFFFD\""));
}

TEST_F(VondJunitTest, TimeThatCannotBeWrittenEndsItBeforeAnythingIsWritten) {
  report_facts().written_at = 253402300800;
  const CapturedOutputLog output;
  EXPECT_THROW(vond_junit::VondJunit(data).run(), std::overflow_error);
  EXPECT_EQ(output.text(), "");
}

}  // namespace
}  // namespace vond::test
