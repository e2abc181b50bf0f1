#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/string_interface.h"

namespace vond::extension {

/// Returns the node names of every output, a list per output.
inline std::vector<std::vector<std::string>> node_lists(
    const postprocessor::CollapsedAnalysisOutput& issue) {
  std::vector<std::vector<std::string>> lists;
  lists.reserve(issue.outputs.size());
  for (const auto& output : issue.outputs) {
    lists.push_back(output->node_names);
  }
  return lists;
}

/// Returns the distinct nodes of all outputs, sorted by their bytes. Views of the issue's own
/// names.
inline std::vector<std::string_view> distinct_nodes(
    const postprocessor::CollapsedAnalysisOutput& issue) {
  std::vector<std::string_view> nodes;
  for (const auto& output : issue.outputs) {
    nodes.insert(nodes.end(), output->node_names.begin(), output->node_names.end());
  }
  std::sort(nodes.begin(), nodes.end());
  nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
  return nodes;
}

/// Returns the nodes of all outputs as `host` folds them, "" for none.
inline std::string folded_nodes(const postprocessor::CollapsedAnalysisOutput& issue,
                                postprocessor::StringInterface& host) {
  auto lists = node_lists(issue);
  const bool has_nodes =
      std::any_of(lists.begin(), lists.end(), [](const auto& list) { return !list.empty(); });
  return has_nodes ? host.get_node_string(lists) : std::string();
}

/// A set of names that only counts: a table with linear probing. Keeps pointers to the names.
class DistinctNames {
 public:
  /// `most` is how many names may be added.
  explicit DistinctNames(std::size_t most) : slots_(slots_for(most)) {}

  void add(const std::string& name) {
    const std::size_t last_slot = slots_.size() - 1;
    std::size_t slot = std::hash<std::string>()(name) & last_slot;
    while (slots_[slot] != nullptr) {
      if (*slots_[slot] == name) {
        return;
      }
      slot = (slot + 1) & last_slot;
    }
    slots_[slot] = &name;
    ++count_;
  }

  std::size_t count() const { return count_; }

 private:
  /// A power of two, and at most half of them in use.
  static std::size_t slots_for(std::size_t names) {
    std::size_t slots = 1;
    while (slots <= 2 * names) {
      slots *= 2;
    }
    return slots;
  }

  std::vector<const std::string*> slots_;
  std::size_t count_ = 0;
};

/// Returns on how many distinct nodes the issue was found.
inline std::size_t count_distinct_nodes(const postprocessor::CollapsedAnalysisOutput& issue) {
  std::size_t names = 0;
  for (const auto& output : issue.outputs) {
    names += output->node_names.size();
  }
  if (names < 2) {
    return names;
  }
  DistinctNames distinct(names);
  for (const auto& output : issue.outputs) {
    for (const std::string& name : output->node_names) {
      distinct.add(name);
    }
  }
  return distinct.count();
}

/// How a report shows the nodes of one issue, worked out when it is first asked for.
class NodeSummary {
 public:
  /// Returns on how many distinct nodes the issue was found.
  std::size_t count(const postprocessor::CollapsedAnalysisOutput& issue) {
    if (!count_) {
      count_ = count_distinct_nodes(issue);
    }
    return *count_;
  }

  /// Returns the nodes of all outputs as `host` writes them.
  const std::string& text(const postprocessor::CollapsedAnalysisOutput& issue,
                          postprocessor::StringInterface& host) {
    if (!text_) {
      auto lists = node_lists(issue);
      text_ = host.get_node_string(lists);
    }
    return *text_;
  }

 private:
  std::optional<std::size_t> count_;
  std::optional<std::string> text_;
};

/// Something about each issue that it is asked for, empty at first. A report shows an issue in its
/// section and under each of its definitions; what that needs is worked out once. Issues must
/// neither change nor go while this lives, which is one report or one part of it.
template <typename Summary>
class SummaryByIssue {
 public:
  Summary& operator[](const postprocessor::CollapsedAnalysisOutput& issue) {
    // What stands far away in memory is asked for several times in a row.
    if (last_issue_ != &issue) {
      last_ = &summaries_[&issue];
      last_issue_ = &issue;
    }
    return *last_;
  }

 private:
  std::unordered_map<const postprocessor::CollapsedAnalysisOutput*, Summary> summaries_;
  const postprocessor::CollapsedAnalysisOutput* last_issue_ = nullptr;
  Summary* last_ = nullptr;
};

/// How a report shows the nodes of its issues.
class NodeSummaries {
 public:
  /// Returns on how many distinct nodes the issue was found.
  std::size_t count(const postprocessor::CollapsedAnalysisOutput& issue) {
    return summaries_[issue].count(issue);
  }

  /// Returns the nodes of all outputs as `host` writes them.
  const std::string& text(const postprocessor::CollapsedAnalysisOutput& issue,
                          postprocessor::StringInterface& host) {
    return summaries_[issue].text(issue, host);
  }

 private:
  SummaryByIssue<NodeSummary> summaries_;
};

}  // namespace vond::extension
