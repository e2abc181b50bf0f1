#include <gtest/gtest.h>

#include <string>

#include "tests/standalone/libvond_host/report_blocks.h"

namespace {

using vond::standalone::ReportFacts;
using vond::test::add_issue;
using vond::test::add_issues;
using vond::test::make_definition;
using vond::test::make_issue;
using vond::test::ReportBlocks;
using vond::test::RULE;

using Summary = ReportBlocks;

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

}  // namespace
