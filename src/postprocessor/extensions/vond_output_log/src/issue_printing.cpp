#include "issue_printing.h"

#include "issue_block.h"
#include "issue_summaries.h"
// Each part of the report has its own copy of the tables; that is wanted.
#include "vond/vocabulary/tables.h"

using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::PostprocessorExtensionData;

namespace vond_output_log {

void IssuePrinting::PrintOutput(std::shared_ptr<CollapsedAnalysisOutput> issue,
                                const PostprocessorExtensionData& data, int number, int width,
                                std::string prefix, bool diagnosis) {
  IssueSummaries summaries;
  IssueBlock(data, *this, summaries).print(issue, {number, width}, prefix, diagnosis);
}

std::string IssuePrinting::GetCategoryLine(std::shared_ptr<CollapsedAnalysisOutput> issue,
                                           std::string indent) {
  return category_line(*issue, indent);
}

}  // namespace vond_output_log
