#include "standalone/report/issue_order.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <utility>

#include "standalone/model/type_names.h"
#include "standalone/nodes/number_sorting.h"

namespace vond::standalone {
namespace {

std::size_t count_distinct(std::vector<StringInterner::Id> nodes) {
  sort_unique(nodes);
  return nodes.size();
}

/// Whether `left` stands before `right` in a report.
bool is_before(const CollapsedOutput& left, const CollapsedOutput& right) {
  if (left.severity != right.severity) {
    return left.severity > right.severity;
  }
  if (left.distinct_nodes != right.distinct_nodes) {
    return left.distinct_nodes > right.distinct_nodes;
  }
  return left.texts < right.texts;
}

/// Returns what orders issues of one severity and number of nodes.
auto texts_in_order(const CollapsedIssue& issue) {
  // Issues that differ in nothing of this would stand in the order of the input.
  const auto& [type, id, severity, definitions, based_on, outputs, distinct_nodes, findings] =
      issue;
  // Texts of different patterns may look the same.
  return std::tuple<const std::string&, std::string_view, const OwnedTexts&,
                    const std::vector<std::string>&, const std::vector<std::string>&,
                    std::string_view>(id, type_name(type), outputs[0].texts, definitions, based_on,
                                      findings ? findings->key() : std::string_view());
}

bool is_before(const CollapsedIssue& left, const CollapsedIssue& right) {
  if (left.severity != right.severity) {
    return left.severity > right.severity;
  }
  if (left.distinct_nodes != right.distinct_nodes) {
    return left.distinct_nodes > right.distinct_nodes;
  }
  return texts_in_order(left) < texts_in_order(right);
}

template <typename Item>
void sort_items(std::vector<Item>& items) {
  std::sort(items.begin(), items.end(),
            [](const Item& left, const Item& right) { return is_before(left, right); });
}

}  // namespace

void count_nodes(CollapsedIssue& issue) {
  for (CollapsedOutput& output : issue.outputs) {
    output.distinct_nodes = count_distinct(output.nodes);
  }
  issue.distinct_nodes = issue.outputs[0].distinct_nodes;
  if (issue.outputs.size() == 1) {
    return;
  }
  std::vector<StringInterner::Id> nodes;
  for (const CollapsedOutput& output : issue.outputs) {
    nodes.insert(nodes.end(), output.nodes.begin(), output.nodes.end());
  }
  issue.distinct_nodes = count_distinct(std::move(nodes));
}

void sort_for_report(std::vector<CollapsedOutput>& outputs) { sort_items(outputs); }

void sort_for_report(std::vector<CollapsedIssue>& issues) { sort_items(issues); }

}  // namespace vond::standalone
