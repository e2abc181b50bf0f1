#pragma once

#include <string>

#include "issue_summaries.h"
#include "vond/extension/issue_index.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_output_log {

/// An issue's place in its group.
struct IssueNumber {
  /// Counts from 1.
  int number = 1;
  /// How many digits numbers of the group are padded to.
  int width = 1;
};

/// Returns `indent`, "Category: ", the issue's category ("FUNCTIONALITY" if it has none) and a line
/// end.
std::string category_line(const vond::postprocessor::CollapsedAnalysisOutput& issue,
                          const std::string& indent);

/// One issue of the issue sections. What it is made of must outlive it.
class IssueBlock {
 public:
  IssueBlock(const vond::postprocessor::PostprocessorExtensionData& data,
             vond::postprocessor::StringInterface& strings, IssueSummaries& summaries)
      : data_(data), strings_(strings), summaries_(summaries) {}

  /// Writes the header and the body, each as one statement, wrapped to the record's line width.
  /// Every line begins with `prefix`. Shares the issue until it is done, for an operation of the
  /// host may let go of it.
  void print(vond::extension::Issue issue, IssueNumber number, const std::string& prefix,
             bool is_diagnosis);

 private:
  std::string body(vond::postprocessor::CollapsedAnalysisOutput& issue, const std::string& indent,
                   bool is_diagnosis);
  std::string related_issues_line(vond::postprocessor::CollapsedAnalysisOutput& issue,
                                  const std::string& indent, bool is_diagnosis);

  const vond::postprocessor::PostprocessorExtensionData& data_;
  vond::postprocessor::StringInterface& strings_;
  IssueSummaries& summaries_;
};

}  // namespace vond_output_log
