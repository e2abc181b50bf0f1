#include "standalone/engine/collapser.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "standalone/engine/severity_scale.h"

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

void mix(std::size_t& hash, std::size_t value) {
  constexpr std::size_t GOLDEN_RATIO = 0x9e3779b97f4a7c15;
  hash = (hash ^ value) * GOLDEN_RATIO;
  hash ^= hash >> 32U;
}

void mix(std::size_t& hash, std::string_view text) {
  mix(hash, std::hash<std::string_view>()(text));
}

void mix(std::size_t& hash, const std::vector<std::string_view>& texts) {
  mix(hash, texts.size());
  for (const std::string_view text : texts) mix(hash, text);
}

bool same(const std::vector<std::string_view>& views, const std::vector<std::string>& strings) {
  return std::equal(views.begin(), views.end(), strings.begin(), strings.end());
}

std::size_t count_distinct(std::vector<StringInterner::Id> nodes) {
  sort_unique(nodes);
  return nodes.size();
}

std::size_t count_distinct_nodes(const CollapsedIssue& issue) {
  if (issue.outputs.size() == 1) return count_distinct(issue.outputs[0].nodes);
  std::vector<StringInterner::Id> nodes;
  for (const CollapsedOutput& output : issue.outputs) append(nodes, output.nodes);
  return count_distinct(std::move(nodes));
}

bool stands_before(const CollapsedOutput& left, const CollapsedOutput& right) {
  if (left.severity != right.severity) return left.severity > right.severity;
  const std::size_t left_nodes = count_distinct(left.nodes);
  const std::size_t right_nodes = count_distinct(right.nodes);
  if (left_nodes != right_nodes) return left_nodes > right_nodes;
  return std::tie(left.message, left.remedy, left.category) <
         std::tie(right.message, right.remedy, right.category);
}

bool stands_before(const CollapsedIssue& left, const CollapsedIssue& right) {
  if (left.severity != right.severity) return left.severity > right.severity;
  if (left.distinct_nodes != right.distinct_nodes)
    return left.distinct_nodes > right.distinct_nodes;
  using Texts = std::tuple<const std::string&, std::string_view, const std::string&,
                           const std::string&, const std::string&, const std::vector<std::string>&,
                           const std::vector<std::string>&>;
  const auto texts = [](const CollapsedIssue& issue) {
    const CollapsedOutput& first = issue.outputs[0];
    return Texts(issue.id, type_name(issue.type), first.message, first.remedy, first.category,
                 issue.definitions, issue.based_on);
  };
  return texts(left) < texts(right);
}

/// Adds `output` to the outputs of an issue, to the one of the same texts if there is one.
void merge_output(std::vector<CollapsedOutput>& outputs, CollapsedOutput output) {
  const auto same_texts = [&output](const CollapsedOutput& other) {
    return std::tie(output.message, output.remedy, output.category) ==
           std::tie(other.message, other.remedy, other.category);
  };
  const auto found = std::find_if(outputs.begin(), outputs.end(), same_texts);
  if (found == outputs.end()) {
    outputs.push_back(std::move(output));
    return;
  }
  found->severity = std::max(found->severity, output.severity);
  append(found->nodes, output.nodes);
  append(found->row_ids, output.row_ids);
}

/// Makes the first message tell how many others stand behind it.
void count_other_messages(CollapsedIssue& issue) {
  std::set<std::string_view> messages;
  for (const CollapsedOutput& output : issue.outputs) messages.insert(output.message);
  const std::size_t others = messages.size() - 1;
  if (others == 0) return;
  issue.outputs[0].message +=
      " (and " + std::to_string(others) + (others == 1 ? " other message)" : " other messages)");
}

std::vector<CollapsedIssue> merge_by_id(std::vector<CollapsedIssue> issues) {
  std::map<std::tuple<postprocessor::TypeCode, std::string, int>, CollapsedIssue> merged;
  for (CollapsedIssue& issue : issues) {
    CollapsedIssue& into = merged[{issue.type, issue.id, band_of(issue.severity).upper_bound}];
    into.type = issue.type;
    into.id = issue.id;
    into.severity = std::max(into.severity, issue.severity);
    append(into.definitions, issue.definitions);
    append(into.based_on, issue.based_on);
    merge_output(into.outputs, std::move(issue.outputs[0]));
  }
  issues.clear();
  for (auto& [key, issue] : merged) {
    sort_unique(issue.definitions);
    sort_unique(issue.based_on);
    std::sort(issue.outputs.begin(), issue.outputs.end(),
              [](const auto& left, const auto& right) { return stands_before(left, right); });
    count_other_messages(issue);
    issues.push_back(std::move(issue));
  }
  return issues;
}

}  // namespace

std::string_view type_name(postprocessor::TypeCode type) {
  switch (type) {
    case postprocessor::DIAGNOSES:
      return "diagnosis";
    case postprocessor::MISSING_DATA:
      return "missing_data";
    default:
      return "observation";
  }
}

std::size_t Collapser::Hash::operator()(const Key& key) const {
  std::size_t hash = key.type;
  mix(hash, static_cast<std::size_t>(key.severity));
  for (const std::string_view text : {key.id, key.category, key.message, key.remedy}) {
    mix(hash, text);
  }
  mix(hash, *key.definitions);
  mix(hash, *key.based_on);
  return hash;
}

bool Collapser::Equal::operator()(const Key& key, std::uint32_t issue) const {
  const CollapsedIssue& other = (*issues)[issue];
  const CollapsedOutput& output = other.outputs[0];
  return key.type == other.type && key.severity == other.severity && key.id == other.id &&
         key.category == output.category && key.message == output.message &&
         key.remedy == output.remedy && same(*key.definitions, other.definitions) &&
         same(*key.based_on, other.based_on);
}

void Collapser::add(const Finding& finding) {
  ++findings_;
  CollapsedOutput& output = issue_of(finding).outputs[0];
  for (const std::string_view node : finding.nodes) output.nodes.push_back(node_names_.id_of(node));
  append(output.row_ids, finding.row_ids);
}

CollapsedIssue& Collapser::issue_of(const Finding& finding) {
  definitions_ = finding.definitions;
  based_on_ = finding.based_on;
  sort_unique(definitions_);
  sort_unique(based_on_);
  const Key key{finding.type,    finding.severity, finding.id,    finding.category,
                finding.message, finding.remedy,   &definitions_, &based_on_};
  const auto found = index_.find(key);
  return found != index_.end() ? issues_[*found] : add_issue(key);
}

CollapsedIssue& Collapser::add_issue(const Key& key) {
  const auto number = static_cast<std::uint32_t>(issues_.size());
  hashes_.push_back(index_.hash_function()(key));
  CollapsedIssue& issue = issues_.emplace_back();
  issue.type = key.type;
  issue.id = key.id;
  issue.severity = key.severity;
  issue.definitions.assign(key.definitions->begin(), key.definitions->end());
  issue.based_on.assign(key.based_on->begin(), key.based_on->end());
  issue.outputs.push_back({key.severity,
                           std::string(key.category),
                           std::string(key.message),
                           std::string(key.remedy),
                           {},
                           {}});
  index_.insert(number);
  return issue;
}

std::vector<CollapsedIssue> Collapser::finish(CollapseBy what) {
  index_.clear();
  hashes_.clear();
  std::vector<CollapsedIssue> issues = std::exchange(issues_, {});
  if (what == CollapseBy::ID) issues = merge_by_id(std::move(issues));
  for (CollapsedIssue& issue : issues) issue.distinct_nodes = count_distinct_nodes(issue);
  std::sort(issues.begin(), issues.end(),
            [](const auto& left, const auto& right) { return stands_before(left, right); });
  for (CollapsedIssue& issue : issues) {
    for (CollapsedOutput& output : issue.outputs) sort_unique(output.row_ids);
  }
  return issues;
}

}  // namespace vond::standalone
