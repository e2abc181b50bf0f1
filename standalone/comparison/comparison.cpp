#include "standalone/comparison/comparison.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "standalone/nodes/number_sorting.h"

namespace vond::standalone {
namespace {

using Number = SeenNames::Number;
using Entry = EarlierSightings::Entry;

constexpr int NO_BAND = -1;

/// What a node had and has of the condition that is being compared.
struct NodeState {
  /// The highest bands.
  int band_before = NO_BAND;
  int band_now = NO_BAND;
  bool is_acknowledged = false;
  /// What it had.
  std::span<const Entry> before = {};
};

std::time_t earliest_of(const NodeState& state) {
  std::time_t earliest = UNKNOWN_TIME;
  for (const Entry& entry : state.before) {
    earliest = std::min(earliest, entry.first_seen);
  }
  return earliest;
}

/// The nodes that a run is known to have looked at.
class LookedAt {
 public:
  LookedAt(const RunSightings& run, const SeenNames& names) : examined_(names.nodes(), false) {
    if (run.examined) {
      for (const Number node : *run.examined) {
        examined_[node] = true;
      }
    }
    for (const auto* issues : {&run.issues, &run.acknowledged}) {
      for (const SeenIssue& issue : *issues) {
        const auto [type, id] = names.condition(issue.condition);
        if (type == postprocessor::MISSING_DATA) {
          add_nodes(issue, without_data_[id]);
        }
      }
    }
    for (auto& [id, nodes] : without_data_) {
      sort_unique(nodes);
    }
  }

  /// Whether nothing kept a check of the condition from seeing it on the node.
  bool contains(Number node, const Condition& condition) const {
    if (!examined_[node]) {
      return false;
    }
    const auto found = without_data_.find(condition.id);
    if (found == without_data_.end() || condition.type == postprocessor::MISSING_DATA) {
      return true;
    }
    // A check that lacked data and names no node may have lacked it anywhere.
    const std::vector<Number>& nodes = found->second;
    return nodes.front() != SeenNames::NO_NODE &&
           !std::binary_search(nodes.begin(), nodes.end(), node);
  }

 private:
  static void add_nodes(const SeenIssue& issue, std::vector<Number>& nodes) {
    for (const Sighting& sighting : issue.sightings) {
      nodes.push_back(sighting.node);
    }
  }

  std::vector<bool> examined_;
  /// The nodes on which checks lacked data, by the ids of the checks; sorted.
  std::map<std::string_view, std::vector<Number>> without_data_;
};

/// The issues of a run by their conditions.
class IssuesByCondition {
 public:
  using Numbers = std::vector<std::size_t>;

  IssuesByCondition(const std::vector<SeenIssue>& issues, const SeenNames& names)
      : numbers_(names.conditions()) {
    for (std::size_t number = 0; number < issues.size(); ++number) {
      numbers_[issues[number].condition].push_back(number);
    }
  }

  const Numbers& of(Number condition) const { return numbers_[condition]; }

 private:
  std::vector<Numbers> numbers_;
};

/// Compares condition after condition.
class Comparer {
 public:
  Comparer(const EarlierSightings& earlier, const RunSightings& run, const SeenNames& names)
      : earlier_(earlier),
        run_(run),
        names_(names),
        looked_at_(run, names),
        issues_(run.issues, names),
        acknowledged_(run.acknowledged, names),
        states_(names.nodes()) {
    comparison_.issues.resize(run.issues.size());
  }

  Comparison compare() {
    for (Number condition = 0; condition < names_.conditions(); ++condition) {
      compare_condition(condition);
    }
    sort_unique(comparison_.nodes_not_looked_at);
    sort_worst_first(comparison_.gone);
    sort_worst_first(comparison_.not_looked_at);
    return std::move(comparison_);
  }

 private:
  void compare_condition(Number condition) {
    note_states(condition);
    for (const std::size_t issue : issues_.of(condition)) {
      compare_issue(run_.issues[issue], comparison_.issues[issue]);
    }
    compare_nodes_left(condition);
    clear_states(condition);
  }

  void sort_worst_first(std::vector<PastCondition>& conditions) const {
    const auto rank = [this](const PastCondition& past) {
      const auto [type, id] = names_.condition(past.condition);
      return std::tuple(-past.band, -static_cast<std::ptrdiff_t>(past.nodes.size()), id, type);
    };
    std::sort(conditions.begin(), conditions.end(),
              [&rank](const auto& left, const auto& right) { return rank(left) < rank(right); });
  }

  void note_states(Number condition) {
    for (const Entry& entry : earlier_.of(condition)) {
      NodeState& state = states_[entry.node];
      state.band_before = std::max(state.band_before, entry.band);
      // Entries of one node stand together.
      state.before = {state.before.empty() ? &entry : state.before.data(), state.before.size() + 1};
    }
    for_each_sighting(run_.issues, issues_.of(condition), [this](const auto& issue, Number node) {
      states_[node].band_now = std::max(states_[node].band_now, issue.band);
    });
    for_each_sighting(
        run_.acknowledged, acknowledged_.of(condition),
        [this](const auto& /*issue*/, Number node) { states_[node].is_acknowledged = true; });
  }

  void clear_states(Number condition) {
    for (const Entry& entry : earlier_.of(condition)) {
      states_[entry.node] = {};
    }
    const auto clear = [this](const auto& /*issue*/, Number node) { states_[node] = {}; };
    for_each_sighting(run_.issues, issues_.of(condition), clear);
    for_each_sighting(run_.acknowledged, acknowledged_.of(condition), clear);
  }

  /// Calls `visit` with each of the issues of these numbers and each of its nodes.
  template <typename Visit>
  static void for_each_sighting(const std::vector<SeenIssue>& issues,
                                const IssuesByCondition::Numbers& numbers, Visit visit) {
    for (const std::size_t number : numbers) {
      for (const Sighting& sighting : issues[number].sightings) {
        visit(issues[number], sighting.node);
      }
    }
  }

  void compare_issue(const SeenIssue& issue, IssueChange& result) const {
    bool is_higher = false;
    bool is_lower = false;
    bool is_reworded = false;
    const bool was_acknowledged = earlier_.has_acknowledged(issue.condition);
    for (const auto& [node, pattern, first_seen] : issue.sightings) {
      const NodeState& state = states_[node];
      result.first_seen = std::min(result.first_seen, first_seen);
      if (was_acknowledged) {
        result.first_seen = std::min(result.first_seen, earlier_.first_seen(issue.condition, node));
      }
      if (state.band_before == NO_BAND) {
        result.added.push_back(node);
        continue;
      }
      result.first_seen = std::min(result.first_seen, earliest_of(state));
      is_higher = is_higher || issue.band > state.band_before;
      is_lower = is_lower || state.band_now < state.band_before;
      is_reworded =
          is_reworded || (state.band_now == state.band_before && !had_pattern(node, pattern));
    }
    sort_unique(result.added);
    if (earlier_.of(issue.condition).empty()) {
      result.change = Change::NEW;
    } else if (is_higher || !result.added.empty()) {
      result.change = Change::WORSE;
    } else if (is_reworded) {
      result.change = Change::REWORDED;
    } else if (is_lower) {
      result.change = Change::BETTER;
    }
  }

  bool had_pattern(Number node, Number pattern) const {
    return std::any_of(states_[node].before.begin(), states_[node].before.end(),
                       [pattern](const Entry& entry) { return entry.pattern == pattern; });
  }

  /// Finds what has become of the nodes that had the condition and are not known to have it now.
  void compare_nodes_left(Number condition) {
    PastCondition past{.condition = condition};
    std::vector<Number> not_looked_at;
    for (const Entry& entry : earlier_.of(condition)) {
      const NodeState& state = states_[entry.node];
      if (state.band_now != NO_BAND || state.is_acknowledged || state.before.data() != &entry) {
        continue;
      }
      past.nodes.push_back(entry.node);
      past.band = std::max(past.band, state.band_before);
      past.first_seen = std::min(past.first_seen, earliest_of(state));
      if (!looked_at_.contains(entry.node, names_.condition(condition))) {
        not_looked_at.push_back(entry.node);
      }
    }
    add_nodes_not_looked_at(not_looked_at);
    if (past.nodes.empty()) {
      return;
    }
    if (!issues_.of(condition).empty()) {
      heal(condition, past.nodes, not_looked_at);
    } else {
      (not_looked_at.empty() ? comparison_.gone : comparison_.not_looked_at)
          .push_back(std::move(past));
    }
  }

  void add_nodes_not_looked_at(const std::vector<Number>& nodes) {
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(comparison_.nodes_not_looked_at),
                 [](Number node) { return node != SeenNames::NO_NODE; });
  }

  /// Gives the nodes that healed to the issues of the condition. Both lists are sorted.
  void heal(Number condition, const std::vector<Number>& nodes,
            const std::vector<Number>& not_looked_at) {
    const auto issue_of_pattern = issues_by_pattern(condition);
    const std::size_t worst = issues_.of(condition).front();
    for (const Number node : nodes) {
      if (std::binary_search(not_looked_at.begin(), not_looked_at.end(), node)) {
        continue;
      }
      std::optional<std::size_t> number;
      for (const Entry& entry : states_[node].before) {
        const auto found = issue_of_pattern.find(entry.pattern);
        if (found != issue_of_pattern.end()) {
          number = std::min(number.value_or(found->second), found->second);
        }
      }
      IssueChange& issue = comparison_.issues[number.value_or(worst)];
      issue.healed.push_back(node);
      issue.change = issue.change == Change::SAME ? Change::BETTER : issue.change;
    }
  }

  /// Returns the worst issue of the condition for each of their patterns.
  std::unordered_map<Number, std::size_t> issues_by_pattern(Number condition) const {
    std::unordered_map<Number, std::size_t> issues;
    for (const std::size_t number : issues_.of(condition)) {
      for (const Sighting& sighting : run_.issues[number].sightings) {
        issues.try_emplace(sighting.pattern, number);
      }
    }
    return issues;
  }

  const EarlierSightings& earlier_;
  const RunSightings& run_;
  const SeenNames& names_;
  LookedAt looked_at_;
  IssuesByCondition issues_;
  IssuesByCondition acknowledged_;
  /// By node.
  std::vector<NodeState> states_;
  Comparison comparison_;
};

}  // namespace

Comparison compare(const EarlierSightings& earlier, const RunSightings& run,
                   const SeenNames& names) {
  return Comparer(earlier, run, names).compare();
}

}  // namespace vond::standalone
