#pragma once

#include <bit>
#include <cstddef>
#include <functional>
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

/// A set of names that only counts: a table with linear probing. Keeps pointers to the names.
class DistinctNames {
 public:
  /// `most` is how many names may be added.
  explicit DistinctNames(std::size_t most) : slots_(std::bit_ceil(2 * most + 1)) {}

  void add(const std::string& name) {
    const std::size_t last_slot = slots_.size() - 1;
    std::size_t slot = std::hash<std::string>()(name) & last_slot;
    while (slots_[slot] != nullptr) {
      if (*slots_[slot] == name) return;
      slot = (slot + 1) & last_slot;
    }
    slots_[slot] = &name;
    ++count_;
  }

  std::size_t count() const { return count_; }

 private:
  std::vector<const std::string*> slots_;
  std::size_t count_ = 0;
};

/// Returns on how many distinct nodes the issue was found.
inline std::size_t count_distinct_nodes(const vond::postprocessor::CollapsedAnalysisOutput& issue) {
  std::size_t names = 0;
  for (const auto& output : issue.outputs) names += output->node_names.size();
  if (names < 2) return names;
  DistinctNames distinct(names);
  for (const auto& output : issue.outputs) {
    for (const std::string& name : output->node_names) distinct.add(name);
  }
  return distinct.count();
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
