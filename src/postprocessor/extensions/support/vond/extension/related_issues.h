#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/utility_functions.h"

namespace vond::extension {

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
