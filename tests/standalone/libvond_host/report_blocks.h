#pragma once

#include <gtest/gtest.h>

#include <string>

#include "standalone/libvond_host/report_facts.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/records.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/util/engine_helper.h"

namespace vond::test {

inline constexpr char RULE[] =
    "--------------------------------------------------------------------------------\n";

/// The blocks of a report, as extensions get them from the host: through its operations.
class ReportBlocks : public testing::Test {
 protected:
  ReportBlocks() { standalone::report_facts() = {}; }
  ~ReportBlocks() override { standalone::report_facts() = {}; }

  /// Gives header and blocks the same width, as the program does.
  void set_width(int width) {
    facts.line_width = width;
    data.line_width = width;
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

  standalone::ReportFacts& facts = standalone::report_facts();
  Data data = make_record();
};

/// Fills in every fact that makes a report doubtful.
inline void fill_doubts(standalone::ReportFacts& facts) {
  facts.findings_read = 7;
  facts.lines_rejected = 2;
  facts.nodes_seen = 3;
  facts.unknown_definitions = {"fabric/links", "storage"};
  facts.unknown_based_on = {"link-down", "psu-failed"};
  facts.examination = standalone::ReportFacts::Examination();
  facts.examination->nodes_examined = 12;
  facts.examination->not_examined_with_findings = {"login1", "n001", "n002"};
  facts.expected_and_not_examined = {"n100", "n101", "n102"};
}

}  // namespace vond::test
