#include <gtest/gtest.h>

#include <string>

#include "tests/standalone/libvond_host/report_blocks.h"

namespace {

using vond::test::add_issue;
using vond::test::make_issue;
using vond::test::ReportBlocks;
using vond::test::RULE;

using End = ReportBlocks;

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

}  // namespace
