#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "failure.h"
#include "issue_lines.h"
#include "test_cases.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"
#include "xml_writer.h"

namespace vond_junit {

/// The tests of the report itself. They are always there, so that no file is empty and none passes
/// where the report does not: `coverage` is an error when something puts the verdict in doubt, and
/// `unassigned issues` fails for issues that contribute to FAIL and that no failing definition
/// shows.
class ReportSuite {
 public:
  static constexpr std::size_t TESTS = 2;

  /// `suites` are those of the definitions; `line` is for the time of the call.
  ReportSuite(const vond::postprocessor::PostprocessorExtensionData& data,
              const vond::vocabulary::SeverityBandTable& bands,
              const std::vector<TestSuite>& suites, IssueLine& line);

  std::size_t failures() const { return unassigned_.count() == 0 ? 0 : 1; }
  std::size_t errors() const { return doubts_.empty() ? 0 : 1; }

  /// Writes the suite. `timestamp` is the report's time.
  void write(XmlWriter& out, const std::string& timestamp) const;

 private:
  void write_coverage(XmlWriter& out) const;
  void write_unassigned(XmlWriter& out) const;

  std::vector<std::string> doubts_;
  ContributingIssues contributing_;
  Lines unassigned_;
  /// The worst band of those issues.
  std::string worst_band_;
};

}  // namespace vond_junit
