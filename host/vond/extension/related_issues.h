#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "vond/extension/issue_numbers.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/utility_functions.h"

namespace vond::extension {

/// Returns the related issues of one type in the order of the report; those that are not of the
/// record come first. Entries without an issue are left out. The issues live as long as `issue`.
inline std::vector<const postprocessor::CollapsedAnalysisOutput*> related_issues(
    const postprocessor::CollapsedAnalysisOutput& issue, postprocessor::Type type,
    const IssueNumbers& numbers) {
  std::vector<const postprocessor::CollapsedAnalysisOutput*> issues;
  const auto of_type = issue.related_issues.find(type);
  if (of_type == issue.related_issues.end()) {
    return issues;
  }
  issues.reserve(of_type->second.size());
  for (const auto& related : of_type->second) {
    if (related) {
      issues.push_back(related.get());
    }
  }
  std::sort(issues.begin(), issues.end(), [&numbers](const auto* left, const auto* right) {
    return numbers.of(left) < numbers.of(right);
  });
  return issues;
}

/// Returns the presentable ids of the related issues of one type, each once, in byte order. The
/// lookup may leave an empty entry behind in the issue, which nothing observes.
inline std::vector<std::string> usable_related_ids(postprocessor::CollapsedAnalysisOutput& issue,
                                                   postprocessor::Type type) {
  std::vector<std::string> ids;
  for (const auto& related : issue.related_issues[type]) {
    ids.push_back(postprocessor::UtilityFunctions::get_usable_id(related->get_id()));
  }
  std::sort(ids.begin(), ids.end());
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  return ids;
}

}  // namespace vond::extension
