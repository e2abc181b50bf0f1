#pragma once

#include <memory>
#include <string>

#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_output_log {

/// Writes one numbered issue of the two issue sections; stateless. IssueBlock does the work.
class IssuePrinting : public vond::postprocessor::StringInterface {
 public:
  /// Writes the issue's header and its body, wrapped to the record's line width; the blank line
  /// after it is the caller's. `number` counts from 1 and is padded to `width` digits; every line
  /// begins with `prefix`.
  void PrintOutput(std::shared_ptr<vond::postprocessor::CollapsedAnalysisOutput> issue,
                   const vond::postprocessor::PostprocessorExtensionData& data, int number,
                   int width, std::string prefix, bool diagnosis);

  /// Returns `indent`, "Category: ", the issue's category ("FUNCTIONALITY" if it has none) and a
  /// line end.
  std::string GetCategoryLine(std::shared_ptr<vond::postprocessor::CollapsedAnalysisOutput> issue,
                              std::string indent);
};

}  // namespace vond_output_log
