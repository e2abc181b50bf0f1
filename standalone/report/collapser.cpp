#include "standalone/report/collapser.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "standalone/model/severity_scale.h"
#include "standalone/model/type_names.h"

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

/// Returns an issue of that wording, found nowhere yet.
CollapsedIssue issue_of(OwnedWording wording) {
  auto& [type, id, severity, texts, definitions, based_on] = wording;
  CollapsedIssue issue{
      type, std::move(id), severity, std::move(definitions), std::move(based_on), {}, 0};
  issue.outputs.push_back({severity, std::move(texts), {}, {}, 0});
  return issue;
}

/// Returns the members_of() the wording that issue_of() has made `issue` of.
auto wording_members_of(const CollapsedIssue& issue) {
  const auto& [type, id, severity, definitions, based_on, outputs, distinct_nodes] = issue;
  const auto& [message, remedy, category] = outputs[0].texts;
  return std::tie(type, severity, id, message, remedy, category, definitions, based_on);
}

std::size_t count_distinct(std::vector<StringInterner::Id> nodes) {
  sort_unique(nodes);
  return nodes.size();
}

/// Counts the nodes of the outputs and of the issue.
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
    append(nodes, output.nodes);
  }
  issue.distinct_nodes = count_distinct(std::move(nodes));
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
  const auto& [type, id, severity, definitions, based_on, outputs, distinct_nodes] = issue;
  return std::tuple<const std::string&, std::string_view, const OwnedTexts&,
                    const std::vector<std::string>&, const std::vector<std::string>&>(
      id, type_name(type), outputs[0].texts, definitions, based_on);
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

/// Sorts outputs or issues as they stand in a report.
template <typename Item>
void sort_for_report(std::vector<Item>& items) {
  std::sort(items.begin(), items.end(),
            [](const Item& left, const Item& right) { return is_before(left, right); });
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
  }
  issue.outputs = std::move(united);
}

/// Makes the first message tell how many others stand behind it.
void count_other_messages(CollapsedIssue& issue) {
  std::set<std::string_view> messages;
  for (const CollapsedOutput& output : issue.outputs) {
    messages.insert(output.texts.message);
  }
  const std::size_t others = messages.size() - 1;
  if (others == 0) {
    return;
  }
  issue.outputs[0].texts.message +=
      " (and " + std::to_string(others) + (others == 1 ? " other message)" : " other messages)");
}

std::vector<CollapsedIssue> merge_by_id(std::vector<CollapsedIssue> issues) {
  std::map<std::tuple<postprocessor::TypeCode, std::string, int>, CollapsedIssue> merged;
  for (auto& [type, id, severity, definitions, based_on, outputs, distinct_nodes] : issues) {
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

}  // namespace

void Collapser::add(const Finding& finding) {
  ++findings_;
  const auto issue =
      known_wordings_.issue_of(finding, [&] { return find_or_add_issue(finding.wording); });
  CollapsedOutput& output = issues_[issue].outputs[0];
  for (const std::string_view node : finding.nodes) {
    output.nodes.push_back(node_names_.id_of(node));
  }
  append(output.row_ids, finding.row_ids);
}

FlatIndex::Number Collapser::find_or_add_issue(const Wording& wording) {
  wording_with_sets_ = wording;
  sort_sets(wording_with_sets_);
  const std::size_t hash = hash_of(wording_with_sets_);
  const FlatIndex::Number found = index_.find(hash, [this](FlatIndex::Number number) {
    return are_same(members_of(wording_with_sets_), wording_members_of(issues_[number]));
  });
  if (found != FlatIndex::NONE) {
    return found;
  }
  issues_.push_back(issue_of(owned(wording_with_sets_)));
  return index_.add(hash);
}

std::vector<CollapsedIssue> Collapser::finish(CollapseBy collapse_by) {
  index_ = {};
  known_wordings_ = {};
  std::vector<CollapsedIssue> issues = std::exchange(issues_, {});
  switch (collapse_by) {
    case CollapseBy::TEXT:
      std::for_each(issues.begin(), issues.end(), count_nodes);
      break;
    case CollapseBy::ID:
      issues = merge_by_id(std::move(issues));
      break;
  }
  sort_for_report(issues);
  for (CollapsedIssue& issue : issues) {
    for (CollapsedOutput& output : issue.outputs) {
      sort_unique(output.row_ids);
    }
  }
  return issues;
}

}  // namespace vond::standalone
