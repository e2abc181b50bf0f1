#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/utility_functions.h"

namespace vond_output_log {

/// Returns the node names of every output, a list per output.
inline std::vector<std::vector<std::string>> node_lists(
    const vond::postprocessor::CollapsedAnalysisOutput& issue) {
  std::vector<std::vector<std::string>> lists;
  lists.reserve(issue.outputs.size());
  for (const auto& output : issue.outputs) lists.push_back(output->node_names);
  return lists;
}

/// Returns on how many distinct nodes the issue was found.
inline std::size_t count_distinct_nodes(const vond::postprocessor::CollapsedAnalysisOutput& issue) {
  std::set<std::string> names;
  for (const auto& output : issue.outputs) {
    names.insert(output->node_names.begin(), output->node_names.end());
  }
  return names.size();
}

/// Returns the presentable ids of the related issues of one type, each once, in byte order. The
/// lookup may leave an empty entry behind in the issue, which nothing observes.
inline std::set<std::string> usable_related_ids(vond::postprocessor::CollapsedAnalysisOutput& issue,
                                                vond::postprocessor::Type type) {
  std::set<std::string> ids;
  for (const auto& related : issue.related_issues[type]) {
    ids.insert(vond::postprocessor::UtilityFunctions::get_usable_id(related->get_id()));
  }
  return ids;
}

/// Returns the items with `separator` between them.
template <typename Items>
std::string join(const Items& items, const std::string& separator) {
  std::string joined;
  bool first = true;
  for (const std::string& item : items) {
    if (!first) joined += separator;
    joined += item;
    first = false;
  }
  return joined;
}

}  // namespace vond_output_log
