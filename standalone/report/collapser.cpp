#include "standalone/report/collapser.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "standalone/model/severity_scale.h"

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
  for (const std::string_view text : texts) {
    mix(hash, text);
  }
}

bool same(const std::vector<std::string_view>& views, const std::vector<std::string>& strings) {
  return std::equal(views.begin(), views.end(), strings.begin(), strings.end());
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

auto texts_of(const CollapsedOutput& output) {
  return std::tie(output.message, output.remedy, output.category);
}

bool stands_before(const CollapsedOutput& left, const CollapsedOutput& right) {
  if (left.severity != right.severity) {
    return left.severity > right.severity;
  }
  if (left.distinct_nodes != right.distinct_nodes) {
    return left.distinct_nodes > right.distinct_nodes;
  }
  return texts_of(left) < texts_of(right);
}

bool stands_before(const CollapsedIssue& left, const CollapsedIssue& right) {
  if (left.severity != right.severity) {
    return left.severity > right.severity;
  }
  if (left.distinct_nodes != right.distinct_nodes) {
    return left.distinct_nodes > right.distinct_nodes;
  }
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

/// Makes outputs of the same texts one. Brings them together by sorting: one issue may have as many
/// outputs as there are findings.
void unite_outputs(CollapsedIssue& issue) {
  std::stable_sort(
      issue.outputs.begin(), issue.outputs.end(),
      [](const auto& left, const auto& right) { return texts_of(left) < texts_of(right); });
  std::vector<CollapsedOutput> united;
  for (CollapsedOutput& output : issue.outputs) {
    if (united.empty() || texts_of(united.back()) != texts_of(output)) {
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
    messages.insert(output.message);
  }
  const std::size_t others = messages.size() - 1;
  if (others == 0) {
    return;
  }
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
    into.outputs.push_back(std::move(issue.outputs[0]));
  }
  issues.clear();
  for (auto& [key, issue] : merged) {
    sort_unique(issue.definitions);
    sort_unique(issue.based_on);
    unite_outputs(issue);
    count_nodes(issue);
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

std::size_t Collapser::hash_of(const Key& key) {
  std::size_t hash = key.type;
  mix(hash, static_cast<std::size_t>(key.severity));
  for (const std::string_view text : {key.id, key.category, key.message, key.remedy}) {
    mix(hash, text);
  }
  mix(hash, *key.definitions);
  mix(hash, *key.based_on);
  return hash;
}

bool Collapser::is_of(const Key& key, const CollapsedIssue& issue) {
  const CollapsedOutput& output = issue.outputs[0];
  return key.type == issue.type && key.severity == issue.severity && key.id == issue.id &&
         key.category == output.category && key.message == output.message &&
         key.remedy == output.remedy && same(*key.definitions, issue.definitions) &&
         same(*key.based_on, issue.based_on);
}

void Collapser::add(const Finding& finding) {
  ++findings_;
  CollapsedOutput& output = issues_[issue_of(finding)].outputs[0];
  for (const std::string_view node : finding.nodes) {
    output.nodes.push_back(node_names_.id_of(node));
  }
  append(output.row_ids, finding.row_ids);
}

std::uint32_t Collapser::issue_of(const Finding& finding) {
  if (finding.wording == Finding::UNKNOWN_WORDING) {
    return find_issue(finding);
  }
  KnownWording& known = known_wordings_[finding.wording % known_wordings_.size()];
  if (known.wording != finding.wording) {
    known = {finding.wording, find_issue(finding)};
  }
  return known.issue;
}

std::uint32_t Collapser::find_issue(const Finding& finding) {
  definitions_ = finding.definitions;
  based_on_ = finding.based_on;
  sort_unique(definitions_);
  sort_unique(based_on_);
  const Key key{finding.type,    finding.severity, finding.id,    finding.category,
                finding.message, finding.remedy,   &definitions_, &based_on_};
  const std::size_t hash = hash_of(key);
  const std::size_t last_place = index_.size() - 1;
  for (std::size_t place = hash & last_place;; place = (place + 1) & last_place) {
    const std::uint32_t issue = index_[place];
    if (issue == NO_ISSUE) {
      index_[place] = add_issue(key, hash);
      if (2 * issues_.size() > index_.size()) {
        grow_index();
      }
      return static_cast<std::uint32_t>(issues_.size() - 1);
    }
    if (hashes_[issue] == hash && is_of(key, issues_[issue])) {
      return issue;
    }
  }
}

void Collapser::grow_index() {
  const std::size_t last_place = 2 * index_.size() - 1;
  std::vector<std::uint32_t> index(last_place + 1, NO_ISSUE);
  for (std::uint32_t issue = 0; issue < hashes_.size(); ++issue) {
    std::size_t place = hashes_[issue] & last_place;
    while (index[place] != NO_ISSUE) {
      place = (place + 1) & last_place;
    }
    index[place] = issue;
  }
  index_ = std::move(index);
}

std::uint32_t Collapser::add_issue(const Key& key, std::size_t hash) {
  const auto number = static_cast<std::uint32_t>(issues_.size());
  hashes_.push_back(hash);
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
                           {},
                           0});
  return number;
}

std::vector<CollapsedIssue> Collapser::finish(CollapseBy what) {
  index_.assign(FIRST_INDEX_SIZE, NO_ISSUE);
  hashes_.clear();
  known_wordings_.fill({});
  std::vector<CollapsedIssue> issues = std::exchange(issues_, {});
  if (what == CollapseBy::ID) {
    issues = merge_by_id(std::move(issues));
  } else {
    for (CollapsedIssue& issue : issues) {
      count_nodes(issue);
    }
  }
  std::sort(issues.begin(), issues.end(),
            [](const auto& left, const auto& right) { return stands_before(left, right); });
  for (CollapsedIssue& issue : issues) {
    for (CollapsedOutput& output : issue.outputs) {
      sort_unique(output.row_ids);
    }
  }
  return issues;
}

}  // namespace vond::standalone
