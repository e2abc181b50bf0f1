#include <gtest/gtest.h>

#include <ctime>
#include <limits>
#include <string>

#include "standalone/libvond_host/report_facts.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/grouping_locale.h"
#include "tests/support/records.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/util/engine_helper.h"

namespace {

using vond::postprocessor::UtilityFunctions;
using vond::standalone::report_facts;
using vond::standalone::ReportFacts;
using vond::test::add_issue;
using vond::test::add_issues;
using vond::test::CapturedOutputLog;
using vond::test::Data;
using vond::test::GroupingLocale;
using vond::test::make_definition;
using vond::test::make_issue;
using vond::test::make_record;
using vond::util::EngineHelper;

constexpr char RULE[] =
    "--------------------------------------------------------------------------------\n";

class ReportBlocks : public testing::Test {
 protected:
  ReportBlocks() { report_facts() = {}; }
  ~ReportBlocks() override { report_facts() = {}; }

  /// Gives header and blocks the same width, as the program does.
  void set_width(int width) {
    facts.line_width = width;
    data.line_width = width;
  }

  std::string header() const { return EngineHelper::format_header(); }
  std::string validation(bool colored = false) const {
    const CapturedOutputLog log(colored);
    UtilityFunctions().print_validation(data);
    return log.text();
  }
  std::string summary(bool colored = false) const {
    const CapturedOutputLog log(colored);
    EXPECT_EQ(UtilityFunctions().Summarize(data), 0);
    return log.text();
  }
  std::string end(bool colored = false) const {
    const CapturedOutputLog log(colored);
    EXPECT_EQ(UtilityFunctions().PrintEnd(data), 0);
    return log.text();
  }

  ReportFacts& facts = report_facts();
  Data data = make_record();
};

using Header = ReportBlocks;
using Validation = ReportBlocks;
using Summary = ReportBlocks;
using End = ReportBlocks;

// ---- Header ------------------------------------------------------------------------------------

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

// ---- Validation --------------------------------------------------------------------------------

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

/// Puts everything that a reader must know into doubt.
void fill_doubts(ReportFacts& facts) {
  facts.findings_read = 7;
  facts.lines_rejected = 2;
  facts.nodes_seen = 3;
  facts.unknown_definitions = {"fabric/links", "storage"};
  facts.unknown_based_on = {"link-down", "psu-failed"};
  facts.examination = ReportFacts::Examination();
  facts.examination->nodes_examined = 12;
  facts.examination->not_examined_with_findings = {"login1", "n001", "n002"};
  facts.expected_and_not_examined = {"n100", "n101", "n102"};
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

// ---- Summary -----------------------------------------------------------------------------------

TEST_F(Summary, OfNothingPasses) {
  EXPECT_EQ(summary(), std::string("Summary\n"
                                   "  Verdict: PASS\n"
                                   "  CRITICAL:      none\n"
                                   "  WARNING:       none\n"
                                   "  INFORMATIONAL: none\n"
                                   "  Failing definitions: none\n") +
                           RULE);
}

TEST_F(Summary, CountsOneOfEachInTheSingular) {
  for (const unsigned mask : {24U, 25U, 26U, 4U, 5U, 6U, 0U, 1U, 2U}) {
    add_issue(data, mask, make_issue({.id = "id"}));
  }
  EXPECT_EQ(summary(),
            std::string("Summary\n"
                        "  Verdict: FAIL\n"
                        "  CRITICAL:      1 diagnosis, 1 observation, 1 check without data\n"
                        "  WARNING:       1 diagnosis, 1 observation, 1 check without data\n"
                        "  INFORMATIONAL: 1 diagnosis, 1 observation, 1 check without data\n"
                        "  Failing definitions: none\n") +
                RULE);
}

TEST_F(Summary, CountsManyInThePluralAndLeavesOutWhatIsNotThere) {
  add_issues(data, 24, "d", 2);
  add_issues(data, 26, "m", 30);
  add_issues(data, 5, "o", 1234);
  EXPECT_EQ(summary(), std::string("Summary\n"
                                   "  Verdict: FAIL\n"
                                   "  CRITICAL:      2 diagnoses, 30 checks without data\n"
                                   "  WARNING:       1234 observations\n"
                                   "  INFORMATIONAL: none\n"
                                   "  Failing definitions: none\n") +
                           RULE);
}

TEST_F(Summary, ReadsTheCountsThatTheThresholdChooses) {
  data.fail_threshold = 25;
  add_issues(data, 20, "d", 3);
  add_issues(data, 1, "o", 2);
  EXPECT_EQ(summary(), std::string("Summary\n"
                                   "  Verdict: FAIL\n"
                                   "  CRITICAL:      none\n"
                                   "  WARNING:       3 diagnoses\n"
                                   "  INFORMATIONAL: 2 observations\n"
                                   "  Failing definitions: none\n") +
                           RULE);
}

TEST_F(Summary, PassesWithIssuesThatDoNotContributeToFail) {
  add_issue(data, 4, make_issue({.id = "id"}));
  EXPECT_EQ(summary(true), std::string("Summary\n"
                                       "\x1B[0;32m  Verdict: PASS\x1B[0m\n"
                                       "  CRITICAL:      none\n"
                                       "  WARNING:       1 diagnosis\n"
                                       "  INFORMATIONAL: none\n"
                                       "  Failing definitions: none\n") +
                               RULE);
}

TEST_F(Summary, FailsWithAnObservationAlone) {
  add_issue(data, 25, make_issue({.id = "id"}));
  EXPECT_EQ(summary(), std::string("Summary\n"
                                   "  Verdict: FAIL\n"
                                   "  CRITICAL:      1 observation\n"
                                   "  WARNING:       none\n"
                                   "  INFORMATIONAL: none\n"
                                   "  Failing definitions: none\n") +
                           RULE);
}

TEST_F(Summary, NamesTheDefinitionsThatFailInTheOrderOfTheTree) {
  const auto failing = [](const std::string& name, bool skipped = false) {
    return make_definition({.name = name, .passed = false, .skipped = skipped});
  };
  data.fwd_root->roots = {
      make_definition({.name = "z", .passed = false},
                      {{failing("z/b"), make_definition({.name = "z/a"})}, {}, {failing("z/c")}}),
      make_definition({.name = "skipped", .passed = false, .skipped = true},
                      {{failing("below skipped"), failing("skipped too", true)}}),
      make_definition({.name = "passed"}),
      failing("a"),
  };
  EXPECT_EQ(summary(), std::string("Summary\n"
                                   "  Verdict: PASS\n"
                                   "  CRITICAL:      none\n"
                                   "  WARNING:       none\n"
                                   "  INFORMATIONAL: none\n"
                                   "  Failing definitions: z, z/b, z/c, below skipped, a\n") +
                           RULE);
}

TEST_F(Summary, ShowsWhatFailsInRed) {
  add_issue(data, 24, make_issue({.id = "id"}));
  add_issue(data, 4, make_issue({.id = "id"}));
  data.fwd_root->roots = {make_definition({.name = "a", .passed = false})};
  EXPECT_EQ(summary(true), std::string("Summary\n"
                                       "\x1B[0;31m  Verdict: FAIL\x1B[0m\n"
                                       "\x1B[0;31m  CRITICAL:      1 diagnosis\x1B[0m\n"
                                       "  WARNING:       1 diagnosis\n"
                                       "  INFORMATIONAL: none\n"
                                       "\x1B[0;31m  Failing definitions: a\x1B[0m\n") +
                               RULE);
}

TEST_F(Summary, TellsHowManyNodesWereExaminedWhereThatIsKnown) {
  facts.nodes_seen = 2;
  facts.examination = ReportFacts::Examination();
  facts.examination->nodes_examined = 1;
  const std::string rest = std::string(
                               "  CRITICAL:      none\n"
                               "  WARNING:       none\n"
                               "  INFORMATIONAL: none\n"
                               "  Failing definitions: none\n") +
                           RULE;
  EXPECT_EQ(summary(),
            "Summary\n"
            "  Verdict: PASS\n"
            "  1 node examined, 2 with issues\n" +
                rest);
  facts.examination->nodes_examined = 120;
  EXPECT_EQ(summary(),
            "Summary\n"
            "  Verdict: PASS\n"
            "  120 nodes examined, 2 with issues\n" +
                rest);
}

/// Returns the second line of a summary.
std::string verdict_in(const std::string& summary) {
  const std::size_t begin = summary.find('\n') + 1;
  return summary.substr(begin, summary.find('\n', begin) - begin);
}

TEST_F(Summary, SaysBesideTheVerdictWhatIsNotInIt) {
  facts.expected_and_not_examined = {"n1"};
  EXPECT_EQ(verdict_in(summary()), "  Verdict: PASS, and 1 expected node was not examined");
  facts.expected_and_not_examined = {"n1", "n2"};
  EXPECT_EQ(verdict_in(summary()), "  Verdict: PASS, and 2 expected nodes were not examined");
  facts.lines_rejected = 1;
  EXPECT_EQ(verdict_in(summary()),
            "  Verdict: PASS, and 2 expected nodes were not examined, and 1 line of input is left "
            "out");
  facts.expected_and_not_examined = {};
  facts.lines_rejected = 20;
  EXPECT_EQ(verdict_in(summary()), "  Verdict: PASS, and 20 lines of input are left out");
}

TEST_F(Summary, ShowsAVerdictInDoubtInYellowUnlessItFails) {
  facts.lines_rejected = 1;
  EXPECT_EQ(verdict_in(summary(true)),
            "\x1B[0;33m  Verdict: PASS, and 1 line of input is left out\x1B[0m");
  add_issue(data, 24, make_issue({.id = "id"}));
  EXPECT_EQ(verdict_in(summary(true)),
            "\x1B[0;31m  Verdict: FAIL, and 1 line of input is left out\x1B[0m");
}

TEST_F(Summary, WrapsUnderItsLines) {
  for (const unsigned mask : {24U, 25U, 26U}) {
    add_issue(data, mask, make_issue({.id = "id"}));
  }
  for (const std::string name : {"compute", "compute/gpu", "fabric", "fabric/links", "storage"}) {
    data.fwd_root->roots.push_back(make_definition({.name = name, .passed = false}));
  }
  facts.expected_and_not_examined = {"n1"};
  set_width(80);
  EXPECT_EQ(summary(), std::string("Summary\n"
                                   "  Verdict: FAIL, and 1 expected node was not examined\n"
                                   "  CRITICAL:      1 diagnosis, 1 observation, 1 check without "
                                   "data\n"
                                   "  WARNING:       none\n"
                                   "  INFORMATIONAL: none\n"
                                   "  Failing definitions: compute, compute/gpu, fabric, "
                                   "fabric/links, storage\n") +
                           RULE);
  set_width(40);
  EXPECT_EQ(summary(), std::string("Summary\n"
                                   "  Verdict: FAIL, and 1 expected node was\n"
                                   "    not examined\n"
                                   "  CRITICAL:      1 diagnosis, 1\n"
                                   "                 observation, 1 check\n"
                                   "                 without data\n"
                                   "  WARNING:       none\n"
                                   "  INFORMATIONAL: none\n"
                                   "  Failing definitions: compute,\n"
                                   "    compute/gpu, fabric, fabric/links,\n"
                                   "    storage\n") +
                           RULE);
}

TEST_F(Summary, ReadsARecordThatHasNoIndexAndNoTree) {
  data.issues_by_mask = nullptr;
  data.fwd_root = nullptr;
  data.counts_by_mask.clear();
  EXPECT_EQ(verdict_in(summary()), "  Verdict: PASS");
}

// ---- End ---------------------------------------------------------------------------------------

TEST_F(End, RepeatsTheVerdict) {
  EXPECT_EQ(end(), std::string(RULE) + "End of report. Verdict: PASS\n");
  add_issue(data, 26, make_issue({.id = "id"}));
  EXPECT_EQ(end(), std::string(RULE) + "End of report. Verdict: FAIL\n");
}

TEST_F(End, ShowsTheVerdictInItsColor) {
  EXPECT_EQ(end(true), std::string(RULE) + "\x1B[0;32mEnd of report. Verdict: PASS\x1B[0m\n");
  facts.expected_and_not_examined = {"n1"};
  EXPECT_EQ(end(true), std::string(RULE) +
                           "\x1B[0;33mEnd of report. Verdict: PASS, and 1 expected node was not "
                           "examined\x1B[0m\n");
  add_issue(data, 24, make_issue({.id = "id"}));
  EXPECT_EQ(end(true), std::string(RULE) +
                           "\x1B[0;31mEnd of report. Verdict: FAIL, and 1 expected node was not "
                           "examined\x1B[0m\n");
}

TEST_F(End, Wraps) {
  facts.lines_rejected = 3;
  set_width(80);
  EXPECT_EQ(end(), std::string(RULE) +
                       "End of report. Verdict: PASS, and 3 lines of input are left out\n");
  set_width(40);
  EXPECT_EQ(end(), std::string(RULE) +
                       "End of report. Verdict: PASS, and 3\n"
                       "    lines of input are left out\n");
}

// ---- All ---------------------------------------------------------------------------------------

TEST_F(ReportBlocks, DoNotDependOnTheGlobalLocale) {
  fill_doubts(facts);
  facts.findings_read = 1234567;
  facts.nodes_seen = 1234;
  facts.examination->nodes_examined = 4321;
  add_issues(data, 24, "d", 1000);
  const std::string expected = header() + validation() + summary() + end();
  EXPECT_NE(expected.find("1234567"), std::string::npos);
  EXPECT_NE(expected.find("4321"), std::string::npos);
  EXPECT_NE(expected.find("1000"), std::string::npos);
  const GroupingLocale locale;
  EXPECT_EQ(header() + validation() + summary() + end(), expected);
}

TEST_F(ReportBlocks, WriteNoColorsToPlainDestinations) {
  fill_doubts(facts);
  add_issue(data, 24, make_issue({.id = "id"}));
  EXPECT_EQ((header() + validation() + summary() + end()).find('\x1B'), std::string::npos);
}

TEST_F(ReportBlocks, HaveNoBlanksAtLineEnds) {
  fill_doubts(facts);
  facts.inputs = {"findings.jsonl"};
  add_issue(data, 24, make_issue({.id = "id"}));
  for (int width = 0; width <= 120; ++width) {
    set_width(width);
    const std::string text = header() + validation() + summary() + end();
    ASSERT_EQ(text.find(" \n"), std::string::npos) << "width " << width << "\n" << text;
  }
}

}  // namespace
