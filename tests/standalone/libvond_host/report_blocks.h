#pragma once

#include <gtest/gtest.h>

#include <string>

#include "standalone/libvond_host/current_facts.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/records.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/util/engine_helper.h"

namespace vond::test {

inline const std::string RULE = std::string(80, '-') + "\n";

/// The facts of this process and a record, and what the host writes of them.
class ReportBlocks : public testing::Test {
 protected:
  ReportBlocks() { facts = {}; }
  ~ReportBlocks() override { facts = {}; }

  /// Gives header and blocks the same width, as the program does.
  void set_width(int width) {
    facts.line_width = width;
    data.line_width = width;
  }

  /// Files an issue in a band that contributes to FAIL.
  Issue add_failing_issue(const IssueParts& parts, unsigned mask = 24) {
    Issue issue = make_issue(parts);
    add_issue(data, mask, issue);
    facts.failed = true;
    return issue;
  }

  std::string header() const { return util::EngineHelper::format_header(); }

  std::string validation(bool colored = false) const {
    const CapturedOutputLog log(colored);
    postprocessor::UtilityFunctions().print_validation(data);
    return log.text();
  }

  std::string summary(bool colored = false) const {
    const CapturedOutputLog log(colored);
    EXPECT_EQ(postprocessor::UtilityFunctions().Summarize(data), 0);
    return log.text();
  }

  std::string end(bool colored = false) const {
    const CapturedOutputLog log(colored);
    EXPECT_EQ(postprocessor::UtilityFunctions().PrintEnd(data), 0);
    return log.text();
  }

  std::string all_blocks() const { return header() + RULE + validation() + summary() + end(); }

  standalone::ReportFacts& facts = standalone::report_facts();
  Data data = make_record();
};

/// Returns `count` names, "<stem>0001" and so on.
inline std::vector<std::string> numbered(const std::string& stem, int count) {
  std::vector<std::string> names;
  for (int number = 1; number <= count; ++number) {
    const std::string digits = std::to_string(number);
    names.push_back(stem + std::string(4 - std::min<std::size_t>(4, digits.size()), '0') + digits);
  }
  return names;
}

}  // namespace vond::test
