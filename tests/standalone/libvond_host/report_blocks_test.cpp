#include <gtest/gtest.h>

#include <string>

#include "tests/standalone/libvond_host/report_blocks.h"
#include "tests/support/grouping_locale.h"

namespace {

using vond::test::add_issue;
using vond::test::add_issues;
using vond::test::fill_doubts;
using vond::test::GroupingLocale;
using vond::test::make_issue;
using vond::test::ReportBlocks;

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
