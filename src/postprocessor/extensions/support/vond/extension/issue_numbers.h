#pragma once

#include <cstddef>
#include <unordered_map>

#include "vond/extension/issue_order.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond::extension {

/// Numbers the issues of a record from 1, through all of them, in the order of the report. Issues
/// must not go while this lives.
class IssueNumbers {
 public:
  /// `bands` is the severity band table of the caller's file.
  IssueNumbers(const postprocessor::PostprocessorExtensionData& data,
               const vocabulary::SeverityBandTable& bands) {
    for_each_issue(data, bands,
                   [this](const Issue& issue, const auto& /*band*/, auto /*type*/, bool /*fails*/) {
                     numbers_.try_emplace(issue.get(), numbers_.size() + 1);
                   });
  }

  /// Returns the issue's number, 0 for one that is not of the record.
  std::size_t of(const postprocessor::CollapsedAnalysisOutput* issue) const {
    const auto found = numbers_.find(issue);
    return found == numbers_.end() ? 0 : found->second;
  }

  /// Counts each issue once, however often it is filed.
  std::size_t size() const { return numbers_.size(); }

 private:
  std::unordered_map<const postprocessor::CollapsedAnalysisOutput*, std::size_t> numbers_;
};

}  // namespace vond::extension
