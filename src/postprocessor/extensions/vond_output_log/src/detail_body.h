#pragma once

#include <string>
#include <string_view>

#include "issue_summaries.h"
#include "label_column.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_output_log {

/// Returns the label column of diagnoses or of observations, all blanks: one column wider than the
/// longest label of the kind.
std::string label_spacer(bool is_diagnosis);

/// The labelled lines of an issue in the tree section. What it is made of must outlive it.
class DetailBody {
 public:
  DetailBody(vond::postprocessor::StringInterface& strings, IssueSummaries& summaries,
             const LabelColumn& column, std::string& buffer)
      : strings_(strings), summaries_(summaries), column_(column), buffer_(buffer) {}

  /// Sets the buffer to the lines, wrapped, with line ends between them. Returns 0, or 1 as soon as
  /// a line fails; the buffer then holds the lines before it, or what it held when the first
  /// failed.
  int format(vond::postprocessor::CollapsedAnalysisOutput& issue, bool is_diagnosis);

 private:
  int begin_with_message(const std::string& message);
  int append(std::string_view label, const std::string& text);
  int append_related(vond::postprocessor::CollapsedAnalysisOutput& issue, bool is_diagnosis);

  vond::postprocessor::StringInterface& strings_;
  IssueSummaries& summaries_;
  const LabelColumn& column_;
  std::string& buffer_;
};

}  // namespace vond_output_log
