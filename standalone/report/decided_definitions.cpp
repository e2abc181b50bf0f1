#include "standalone/report/decided_definitions.h"

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "standalone/report/issue_masks.h"

namespace vond::standalone {
namespace {

using CountsByName = std::unordered_map<std::string_view, decltype(Fwd::issue_counts)>;

/// Returns the counts of all definitions that issues name. The names are the issues' own.
CountsByName count_by_definition(const std::vector<CollapsedIssue>& issues, int fail_threshold) {
  CountsByName counts;
  for (const CollapsedIssue& issue : issues) {
    const postprocessor::SeverityMask mask = definition_count_mask(issue, fail_threshold);
    for (const std::string& name : issue.definitions) {
      ++counts[name][mask];
    }
  }
  return counts;
}

std::set<std::string_view> names_of(const CountsByName& counts) {
  std::set<std::string_view> names;
  for (const auto& [name, count] : counts) {
    names.insert(name);
  }
  return names;
}

}  // namespace

DefinitionTree decide_definitions(const std::optional<std::vector<DefinitionSpec>>& specs,
                                  const std::vector<CollapsedIssue>& issues, int fail_threshold) {
  CountsByName counts = count_by_definition(issues, fail_threshold);
  const std::set<std::string_view> names = names_of(counts);
  DefinitionTree tree = specs ? DefinitionTree(*specs, names) : DefinitionTree(names);
  for (auto& [name, issue_counts] : counts) {
    tree[name].issue_counts = std::move(issue_counts);
  }
  tree.decide();
  return tree;
}

}  // namespace vond::standalone
