#include <gtest/gtest.h>

#include <ctime>
#include <limits>

#include "tests/standalone/libvond_host/report_blocks.h"

namespace vond::test {
namespace {

using Header = ReportBlocks;

TEST_F(Header, TellsTheVerdictTheTimeInUtcTheInputItsAgeAndTheNodes) {
  facts.inputs = {{"findings.jsonl", 120, false}};
  facts.written_at = 1767323045;
  facts.findings_read = 70;
  facts.nodes_seen = 64;
  EXPECT_EQ(header(),
            "Cluster health report: PASS\n"
            "  Written:  2026-01-02 03:04:05 UTC\n"
            "  Input:    findings.jsonl, 2 minutes old\n"
            "  Nodes:    64 seen; which were examined is not known\n");
}

/// Returns one line of a header, from 0.
std::string line_of(const std::string& header, int number) {
  std::size_t begin = 0;
  for (; number > 0; --number) {
    begin = header.find('\n', begin) + 1;
  }
  return header.substr(begin, header.find('\n', begin) - begin);
}

TEST_F(Header, BeginsWithTheVerdictsWord) {
  EXPECT_EQ(line_of(header(), 0), "Cluster health report: UNKNOWN");
  facts.failed = true;
  EXPECT_EQ(line_of(header(), 0), "Cluster health report: FAIL");
}

TEST_F(Header, NamesAllInputsInReadingOrder) {
  facts.inputs = {{"b.jsonl", 7200, false}, {"standard input", {}, false}, {"a.jsonl", -60, false}};
  EXPECT_EQ(line_of(header(), 2),
            "  Input:    b.jsonl, 2 hours old; standard input; a.jsonl, 1 minute in the future");
}

TEST_F(Header, CountsTheInputsThatDoNotFit) {
  for (const std::string& name : numbered("/var/log/health/rack", 100)) {
    facts.inputs.push_back({name, 60, false});
  }
  set_width(80);
  EXPECT_EQ(header(),
            "Cluster health report: UNKNOWN\n"
            "  Written:  1970-01-01 00:00:00 UTC\n"
            "  Input:    /var/log/health/rack0001, 1 minute old; /var/log/health/rack0002, 1\n"
            "            minute old; /var/log/health/rack0003, 1 minute old and 97 more\n"
            "  Nodes:    0 seen; which were examined is not known\n");
}

TEST_F(Header, CutsALongNameAndNotTheAgeBehindIt) {
  const std::string name = "/var/lib/monitoring/clusters/production/2026-01-02/findings.jsonl";
  facts.inputs = {{name, 3 * 86400, false}};
  set_width(40);
  EXPECT_NE(header().find("  Input:    /var/lib/monitoring/\n"
                          "            clusters/prod..., 3 days old\n"),
            std::string::npos)
      << header();
  for (const std::size_t inputs : {1U, 2U, 1000U}) {
    facts.inputs.resize(inputs, {"b", -400 * 86400, false});
    for (const int width : {0, 40, 41, 60, 80}) {
      facts.inputs[0].name = std::string(400, 'n');
      set_width(width);
      EXPECT_NE(header().find("..., 3 days old"), std::string::npos) << header();
    }
  }
}

TEST_F(Header, TellsHowManyNodesWereExaminedAndExpected) {
  facts.nodes_seen = 1;
  facts.examination = {120, {}};
  EXPECT_EQ(line_of(header(), 3), "  Nodes:    120 examined, 1 with issues");
  facts.expectation = {122, {"a", "b"}, {}, {}};
  EXPECT_EQ(line_of(header(), 3), "  Nodes:    120 examined, 1 with issues, 122 expected");
  facts.examination = {};
  EXPECT_EQ(line_of(header(), 3),
            "  Nodes:    1 seen, 122 expected; which were examined is not known");
}

TEST_F(Header, DoesNotTakeNodesWithAcknowledgedIssuesForHealthy) {
  facts.nodes_seen = 1;
  facts.examination = {120, {}};
  facts.expectation = {122, {"a", "b"}, {}, {}};
  facts.acknowledged = standalone::ReportFacts::Acknowledged{};
  EXPECT_EQ(line_of(header(), 3), "  Nodes:    120 examined, 1 with issues, 122 expected");
  facts.acknowledged->nodes = {"n1", "n2", "n3"};
  EXPECT_EQ(line_of(header(), 3),
            "  Nodes:    120 examined, 1 with issues, 3 with acknowledged ones, 122 expected");
}

TEST_F(Header, WrapsUnderItsTexts) {
  facts.inputs = {{"findings.jsonl", 120, false}};
  set_width(40);
  EXPECT_EQ(header(),
            "Cluster health report: UNKNOWN\n"
            "  Written:  1970-01-01 00:00:00 UTC\n"
            "  Input:    findings.jsonl, 2 minutes\n"
            "            old\n"
            "  Nodes:    0 seen; which were examined\n"
            "            is not known\n");
}

TEST_F(Header, SurvivesATimeThatNoCalendarHas) {
  facts.written_at = std::numeric_limits<std::time_t>::max();
  EXPECT_EQ(line_of(header(), 1), "  Written:  unknown");
}

}  // namespace
}  // namespace vond::test
