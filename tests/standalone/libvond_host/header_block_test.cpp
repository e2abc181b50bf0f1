#include <gtest/gtest.h>

#include <ctime>
#include <limits>
#include <string>

#include "tests/standalone/libvond_host/report_blocks.h"

namespace {

using vond::standalone::ReportFacts;
using vond::test::ReportBlocks;

using Header = ReportBlocks;

TEST_F(Header, NamesTheReportItsTimeInUtcItsInputAndTheNumberOfNodes) {
  facts.inputs = {"findings.jsonl"};
  facts.written_at = 1767323045;
  facts.nodes_seen = 64;
  EXPECT_EQ(header(),
            "Cluster health report\n"
            "  Written:  2026-01-02 03:04:05 UTC\n"
            "  Input:    findings.jsonl\n"
            "  Nodes:    64\n");
}

TEST_F(Header, NamesAllInputsInReadingOrder) {
  facts.inputs = {"b.jsonl", "-", "a.jsonl"};
  EXPECT_EQ(header(),
            "Cluster health report\n"
            "  Written:  1970-01-01 00:00:00 UTC\n"
            "  Input:    b.jsonl, -, a.jsonl\n"
            "  Nodes:    0\n");
}

TEST_F(Header, TellsHowManyNodesWereExaminedWhereThatIsKnown) {
  facts.inputs = {"f"};
  facts.nodes_seen = 1;
  facts.examination = ReportFacts::Examination();
  facts.examination->nodes_examined = 120;
  EXPECT_EQ(header(),
            "Cluster health report\n"
            "  Written:  1970-01-01 00:00:00 UTC\n"
            "  Input:    f\n"
            "  Nodes:    120 examined, 1 with issues\n");
}

TEST_F(Header, WrapsUnderItsTexts) {
  facts.inputs = {"/var/log/health/rack1.jsonl", "/var/log/health/rack2.jsonl",
                  "/var/log/health/rack3.jsonl"};
  set_width(80);
  EXPECT_EQ(header(),
            "Cluster health report\n"
            "  Written:  1970-01-01 00:00:00 UTC\n"
            "  Input:    /var/log/health/rack1.jsonl, /var/log/health/rack2.jsonl,\n"
            "            /var/log/health/rack3.jsonl\n"
            "  Nodes:    0\n");
  set_width(40);
  EXPECT_EQ(header(),
            "Cluster health report\n"
            "  Written:  1970-01-01 00:00:00 UTC\n"
            "  Input:    /var/log/health/rack1.jsonl,\n"
            "            /var/log/health/rack2.jsonl,\n"
            "            /var/log/health/rack3.jsonl\n"
            "  Nodes:    0\n");
}

TEST_F(Header, DoesNotWrapWithoutAWidth) {
  facts.inputs = {std::string(300, 'x')};
  for (const int width : {0, -1}) {
    set_width(width);
    EXPECT_EQ(header(),
              "Cluster health report\n"
              "  Written:  1970-01-01 00:00:00 UTC\n"
              "  Input:    " +
                  std::string(300, 'x') +
                  "\n"
                  "  Nodes:    0\n");
  }
}

TEST_F(Header, SurvivesATimeThatNoCalendarHas) {
  facts.inputs = {"f"};
  facts.written_at = std::numeric_limits<std::time_t>::max();
  EXPECT_EQ(header(),
            "Cluster health report\n"
            "  Written:  unknown\n"
            "  Input:    f\n"
            "  Nodes:    0\n");
}

}  // namespace
