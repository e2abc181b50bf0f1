#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "html_writer.h"
#include "vond/extension/issue_numbers.h"
#include "vond/extension/related_issues.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_html {

/// An issue that is on the page.
struct PageIssue {
  const vond::postprocessor::CollapsedAnalysisOutput* issue;
  vond::vocabulary::SeverityBand band;
  vond::postprocessor::TypeCode type;
  bool fails;
};

/// Which issues are on the page, the worst of all; their place in `issues()` is their number
/// less 1. The record must outlive it.
class PageIssues {
 public:
  /// Browsers show so many at once, and more without a script nobody reads.
  static constexpr std::size_t MOST_ISSUES = 200;

  PageIssues(const vond::postprocessor::PostprocessorExtensionData& data,
             const vond::vocabulary::SeverityBandTable& bands);

  /// In the order of the report, each once.
  const std::vector<PageIssue>& issues() const { return issues_; }

  /// Returns how many issues the report has.
  std::size_t size() const { return numbers_.size(); }

  /// Returns how many issues the report has beside those on the page.
  std::size_t others() const { return size() - issues_.size(); }

  /// Returns the issue's number in the report.
  std::size_t number_of(const vond::postprocessor::CollapsedAnalysisOutput& issue) const {
    return numbers_.of(&issue);
  }

  /// Returns the issue where it is on the page, else null.
  const PageIssue* find(const vond::postprocessor::CollapsedAnalysisOutput& issue) const;

  /// Returns the issues of one type that an issue is related to, in the order of the report.
  std::vector<const vond::postprocessor::CollapsedAnalysisOutput*> related(
      const vond::postprocessor::CollapsedAnalysisOutput& issue,
      vond::postprocessor::Type type) const {
    return vond::extension::related_issues(issue, type, numbers_);
  }

  /// Returns the name of the place of an issue, which a link has behind a `#`.
  std::string anchor_of(const vond::postprocessor::CollapsedAnalysisOutput& issue) const {
    return "issue-" + std::to_string(number_of(issue));
  }

  /// Writes the id of an issue, as a link where the issue is on the page.
  void write_link(HtmlWriter& page,
                  const vond::postprocessor::CollapsedAnalysisOutput& issue) const;

 private:
  vond::extension::IssueNumbers numbers_;
  std::vector<PageIssue> issues_;
};

}  // namespace vond_html
