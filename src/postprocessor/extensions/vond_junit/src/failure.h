#pragma once

#include <cstddef>
#include <string>

#include "issue_lines.h"
#include "test_cases.h"
#include "vond/extension/issues_by_definition.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_junit {

/// What a pipeline shows of a test that fails.
struct Failure {
  /// The worst band, in upper case; "FAIL" when no issue tells one.
  std::string type;
  /// One line.
  std::string message;
  /// The issues, then the definitions below that fail.
  std::string content;
};

/// Tells on one line how many issues contribute to FAIL, and the ids of the first.
class ContributingIssues {
 public:
  void add(const vond::postprocessor::CollapsedAnalysisOutput& issue);

  std::size_t count() const { return count_; }

  /// Returns "2 issues contribute to FAIL: a, b". There must be issues.
  std::string text() const;

 private:
  static constexpr std::size_t MOST_IDS = 3;
  /// In bytes.
  static constexpr std::size_t LONGEST_ID = 200;

  std::string ids_;
  std::size_t count_ = 0;
};

/// Tells why definitions fail. What it is made of must outlive it.
class Failures {
 public:
  Failures(vond::extension::IssuesByDefinition& issues,
           const vond::vocabulary::SeverityBandTable& bands, IssueLine& line)
      : issues_(issues), bands_(bands), line_(line) {}

  /// Returns why this case, which fails, does.
  Failure of(const TestCase& test);

 private:
  std::string type_of(const TestCase& test) const;

  vond::extension::IssuesByDefinition& issues_;
  const vond::vocabulary::SeverityBandTable& bands_;
  IssueLine& line_;
};

}  // namespace vond_junit
