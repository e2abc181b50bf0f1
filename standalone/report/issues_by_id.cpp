#include "standalone/report/issues_by_id.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "standalone/model/severity_scale.h"
#include "standalone/report/issue_order.h"
#include "standalone/text/utc_time.h"

namespace vond::standalone {
namespace {

template <typename Item>
void sort_unique(std::vector<Item>& items) {
  std::sort(items.begin(), items.end());
  items.erase(std::unique(items.begin(), items.end()), items.end());
}

template <typename Item>
void append(std::vector<Item>& items, const std::vector<Item>& more) {
  items.insert(items.end(), more.begin(), more.end());
}

/// Makes outputs of the same texts one. Brings them together by sorting: one issue may have as many
/// outputs as there are findings.
void unite_outputs(CollapsedIssue& issue) {
  std::stable_sort(issue.outputs.begin(), issue.outputs.end(),
                   [](const auto& left, const auto& right) { return left.texts < right.texts; });
  std::vector<CollapsedOutput> united;
  for (CollapsedOutput& output : issue.outputs) {
    if (united.empty() || united.back().texts != output.texts) {
      united.push_back(std::move(output));
      continue;
    }
    united.back().severity = std::max(united.back().severity, output.severity);
    append(united.back().nodes, output.nodes);
    append(united.back().row_ids, output.row_ids);
    united.back().has_finding_without_node =
        united.back().has_finding_without_node || output.has_finding_without_node;
    united.back().first_seen = earliest(united.back().first_seen, output.first_seen);
  }
  issue.outputs = std::move(united);
}

/// Notes behind the first message how many others there are.
void count_other_messages(CollapsedIssue& issue) {
  std::set<std::string_view> messages;
  for (const CollapsedOutput& output : issue.outputs) {
    messages.insert(output.texts.message);
  }
  const std::size_t others = messages.size() - 1;
  if (others == 0) {
    return;
  }
  issue.outputs[0].note =
      " (and " + std::to_string(others) + (others == 1 ? " other message)" : " other messages)");
}

}  // namespace

std::vector<CollapsedIssue> merge_by_id(std::vector<CollapsedIssue> issues) {
  std::map<std::tuple<postprocessor::TypeCode, std::string, int>, CollapsedIssue> merged;
  for (auto& [type, id, severity, definitions, based_on, outputs, distinct_nodes, findings] :
       issues) {
    CollapsedIssue& into = merged[{type, id, band_of(severity).upper_bound}];
    into.type = type;
    into.id = id;
    into.severity = std::max(into.severity, severity);
    append(into.definitions, definitions);
    append(into.based_on, based_on);
    into.outputs.push_back(std::move(outputs[0]));
  }
  issues.clear();
  for (auto& [key, issue] : merged) {
    sort_unique(issue.definitions);
    sort_unique(issue.based_on);
    unite_outputs(issue);
    count_nodes(issue);
    sort_for_report(issue.outputs);
    count_other_messages(issue);
    issues.push_back(std::move(issue));
  }
  return issues;
}

}  // namespace vond::standalone
