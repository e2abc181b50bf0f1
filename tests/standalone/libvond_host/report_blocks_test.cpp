// What holds for all of the host's blocks, of a small cluster and of a large one.
#include "tests/standalone/libvond_host/report_blocks.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/grouping_locale.h"

namespace vond::test {
namespace {

std::size_t lines_before(const std::string& text, const std::string& what) {
  const std::size_t end = text.find(what);
  EXPECT_NE(end, std::string::npos) << what;
  return static_cast<std::size_t>(
      std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
}

/// A cluster of 20,000 nodes where a lot is wrong and a lot is not known.
class LargeCluster : public ReportBlocks {
 protected:
  LargeCluster() {
    const std::vector<std::string> nodes = numbered("cn", 20'000);
    facts.inputs = {{"/var/log/health/findings.jsonl", 172'800, false}};
    facts.findings_read = 1'234'567;
    facts.findings_without_definition = 17;
    facts.nodes_seen = nodes.size();
    facts.examination = {19'849, every(nodes, 500)};
    facts.expectation = {20'000, every(nodes, 133), every(nodes, 700), {{"cn0001", "cn1"}}};
    facts.unknown_based_on = numbered("id-of-an-observation-that-nobody-reported-", 300);
    add_issues_on(nodes);
  }

  static std::vector<std::string> every(const std::vector<std::string>& names, std::size_t step) {
    std::vector<std::string> chosen;
    for (std::size_t i = 0; i < names.size(); i += step) {
      chosen.push_back(names[i]);
    }
    return chosen;
  }

 private:
  void add_issues_on(const std::vector<std::string>& nodes) {
    for (const unsigned mask : {24U, 25U, 26U, 4U, 5U, 6U, 0U, 1U, 2U}) {
      for (const std::size_t step : {1U, 3U, 17U, 311U}) {
        add_failing_issue({.id = "issue-on-every-" + std::to_string(step),
                           .message = "A message of some length that tells what is the matter.",
                           .nodes = every(nodes, step)},
                          mask);
      }
    }
  }
};

/// From narrow to wide, around the width from which tables have texts.
constexpr int WIDTHS[] = {40, 59, 60, 80, 133, 200};

TEST_F(LargeCluster, HasItsVerdictInTheFirst24Lines) {
  for (const int width : {80, 133, 200, 0}) {
    set_width(width);
    const std::string text = header() + RULE + validation() + summary();
    EXPECT_LT(lines_before(text, "  Verdict: FAIL"), 24U) << text;
  }
}

TEST_F(LargeCluster, HasItsVerdictInTheFirst24NarrowLinesWhenLessIsInDoubt) {
  facts.examination->not_examined_with_findings = {};
  facts.expectation->not_expected = {};
  facts.expectation->alike = {};
  for (const int width : WIDTHS) {
    set_width(width);
    const std::string text = header() + RULE + validation() + summary();
    EXPECT_LT(lines_before(text, "  Verdict: FAIL"), 24U) << text;
  }
}

TEST_F(LargeCluster, HasAnEndThatGoesOntoATerminal) {
  for (const int width : WIDTHS) {
    set_width(width);
    const std::string text = end();
    EXPECT_LT(std::count(text.begin(), text.end(), '\n'), 24) << text;
  }
}

TEST_F(LargeCluster, DoesNotDependOnTheGlobalLocale) {
  const std::string expected = all_blocks();
  EXPECT_NE(expected.find("1234567"), std::string::npos);
  EXPECT_NE(expected.find("20000"), std::string::npos);
  const GroupingLocale locale;
  EXPECT_EQ(all_blocks(), expected);
}

TEST_F(LargeCluster, WritesNoColorsToPlainDestinations) {
  EXPECT_EQ(all_blocks().find('\x1B'), std::string::npos);
}

TEST_F(LargeCluster, HasNoBlanksAtLineEndsAndNoLineWiderThanAsked) {
  for (const int width : WIDTHS) {
    set_width(width);
    const std::string text = header() + validation() + summary() + end();
    ASSERT_EQ(text.find(" \n"), std::string::npos) << "width " << width << "\n" << text;
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t line_end = text.find('\n', begin);
      const std::string line = text.substr(begin, line_end - begin) + "\n";
      ASSERT_TRUE(line == RULE || line.size() <= static_cast<std::size_t>(width) + 1) << line;
      begin = line_end + 1;
    }
  }
}

}  // namespace
}  // namespace vond::test
