#include <gtest/gtest.h>

#include <string>

#include "tests/standalone/libvond_host/report_blocks.h"

namespace {

using vond::standalone::ReportFacts;
using vond::test::fill_doubts;
using vond::test::ReportBlocks;

using Validation = ReportBlocks;

TEST_F(Validation, TellsWhatWasReadWhenNothingIsInDoubt) {
  EXPECT_EQ(validation(),
            "Validation\n"
            "  Findings read: 0\n"
            "  Nodes seen: 0\n"
            "\n");
  facts.findings_read = 1000000;
  facts.nodes_seen = 1;
  EXPECT_EQ(validation(),
            "Validation\n"
            "  Findings read: 1000000\n"
            "  Nodes seen: 1\n"
            "\n");
}

TEST_F(Validation, TellsEveryDoubt) {
  fill_doubts(facts);
  EXPECT_EQ(
      validation(),
      "Validation\n"
      "  Findings read: 7\n"
      "  Nodes seen: 3\n"
      "  Lines of input that cannot be used and are left out: 2\n"
      "  Definitions that findings name and the definitions file lacks: fabric/links, storage\n"
      "  Observations that findings are based on and nobody reported: link-down, psu-failed\n"
      "  Nodes that have findings and were not examined: login1,n[001-002]\n"
      "  Nodes that were expected and not examined: n[100-102]\n"
      "\n");
}

TEST_F(Validation, TellsEachDoubtAlone) {
  const std::string lead =
      "Validation\n"
      "  Findings read: 0\n"
      "  Nodes seen: 0\n";
  facts.lines_rejected = 1;
  EXPECT_EQ(validation(), lead + "  Lines of input that cannot be used and are left out: 1\n\n");
  facts = {};
  facts.unknown_definitions = {"a"};
  EXPECT_EQ(validation(),
            lead + "  Definitions that findings name and the definitions file lacks: a\n\n");
  facts = {};
  facts.unknown_based_on = {"a"};
  EXPECT_EQ(validation(),
            lead + "  Observations that findings are based on and nobody reported: a\n\n");
  facts = {};
  facts.examination = ReportFacts::Examination();
  EXPECT_EQ(validation(), lead + "\n");
  facts.examination->not_examined_with_findings = {"n1"};
  EXPECT_EQ(validation(), lead + "  Nodes that have findings and were not examined: n1\n\n");
  facts = {};
  facts.expected_and_not_examined = {"n1"};
  EXPECT_EQ(validation(), lead + "  Nodes that were expected and not examined: n1\n\n");
}

TEST_F(Validation, ShowsDoubtsAloneInYellow) {
  facts.findings_read = 7;
  facts.unknown_definitions = {"a", "b"};
  facts.unknown_based_on = {"c"};
  EXPECT_EQ(
      validation(true),
      "Validation\n"
      "  Findings read: 7\n"
      "  Nodes seen: 0\n"
      "\x1B[0;33m  Definitions that findings name and the definitions file lacks: a, b\x1B[0m\n"
      "\x1B[0;33m  Observations that findings are based on and nobody reported: c\x1B[0m\n"
      "\n");
}

TEST_F(Validation, WrapsUnderItsLines) {
  fill_doubts(facts);
  set_width(80);
  EXPECT_EQ(validation(),
            "Validation\n"
            "  Findings read: 7\n"
            "  Nodes seen: 3\n"
            "  Lines of input that cannot be used and are left out: 2\n"
            "  Definitions that findings name and the definitions file lacks: fabric/links,\n"
            "    storage\n"
            "  Observations that findings are based on and nobody reported: link-down,\n"
            "    psu-failed\n"
            "  Nodes that have findings and were not examined: login1,n[001-002]\n"
            "  Nodes that were expected and not examined: n[100-102]\n"
            "\n");
  set_width(40);
  EXPECT_EQ(validation(),
            "Validation\n"
            "  Findings read: 7\n"
            "  Nodes seen: 3\n"
            "  Lines of input that cannot be used and\n"
            "    are left out: 2\n"
            "  Definitions that findings name and the\n"
            "    definitions file lacks:\n"
            "    fabric/links, storage\n"
            "  Observations that findings are based\n"
            "    on and nobody reported: link-down,\n"
            "    psu-failed\n"
            "  Nodes that have findings and were not\n"
            "    examined: login1,n[001-002]\n"
            "  Nodes that were expected and not\n"
            "    examined: n[100-102]\n"
            "\n");
}

}  // namespace
