#include "node_states.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "vond/extension/issue_order.h"
#include "vond/extension/node_summaries.h"
#include "vond/facts/run_facts.h"

namespace vond_html {

using vond::postprocessor::PostprocessorExtensionData;
using vond::vocabulary::SeverityBandTable;

namespace {

using States = std::unordered_map<std::string, NodeState>;

NodeState& state_of(const std::string& name, States& states) {
  NodeState& state = states[name];
  if (state.name.empty()) {
    state.name = name;
  }
  return state;
}

/// Notes who was examined. Where nobody told, whoever has findings was.
void note_examined(States& states) {
  if (vond::facts::nodes_examined()) {
    for (auto& [name, state] : states) {
      state.is_examined = false;
    }
  }
  for (const std::string& name : vond::facts::examined_nodes()) {
    state_of(name, states).is_examined = true;
  }
  for (const std::string& name : vond::facts::nodes_not_examined()) {
    state_of(name, states).is_examined = false;
  }
}

States states_of_nodes(const PostprocessorExtensionData& data, const SeverityBandTable& bands) {
  States states;
  vond::extension::for_each_issue(
      data, bands,
      [&states](const vond::extension::Issue& issue, const auto& band, auto /*type*/,
                bool /*fails*/) {
        for (const std::string_view name : vond::extension::distinct_nodes(*issue)) {
          NodeState& state = state_of(std::string(name), states);
          ++state.issues;
          if (state.worst == nullptr) {
            state.worst = issue.get();
            state.band = band;
          }
        }
      });
  for (const std::string& name : vond::facts::acknowledged_nodes()) {
    state_of(name, states).is_acknowledged = true;
  }
  note_examined(states);
  return states;
}

bool is_digit(char byte) { return byte >= '0' && byte <= '9'; }

std::string prefix_of(const std::string& name) {
  return {name.begin(), std::find_if(name.begin(), name.end(), is_digit)};
}

/// Takes the digits at the start of a text that begins with one, without zeros before them.
std::string_view take_number(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), is_digit);
  std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(number.size());
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

/// Takes the nodes of racks out of `states`. Racks without any are left out.
std::vector<NodeGroup> take_racks(States& states) {
  std::vector<NodeGroup> groups;
  for (const auto& [name, nodes] : vond::facts::racks()) {
    NodeGroup group{name, {}};
    for (const std::string& node : nodes) {
      if (auto state = states.extract(node)) {
        group.nodes.push_back(std::move(state.mapped()));
      }
    }
    if (!group.nodes.empty()) {
      groups.push_back(std::move(group));
    }
  }
  return groups;
}

std::vector<NodeGroup> group_by_prefix(const States& states) {
  std::map<std::string, std::vector<NodeState>> nodes_of_prefix;
  for (const auto& [name, state] : states) {
    nodes_of_prefix[prefix_of(name)].push_back(state);
  }
  std::vector<NodeGroup> groups;
  groups.reserve(nodes_of_prefix.size() + 1);
  // All nodes that would be alone in theirs, and those that are numbers.
  NodeGroup others;
  for (auto& [prefix, nodes] : nodes_of_prefix) {
    if (nodes.size() == 1 || prefix.empty()) {
      std::move(nodes.begin(), nodes.end(), std::back_inserter(others.nodes));
    } else {
      groups.push_back({prefix, std::move(nodes)});
    }
  }
  if (!others.nodes.empty()) {
    groups.push_back(std::move(others));
  }
  return groups;
}

}  // namespace

bool comes_before(std::string_view left, std::string_view right) {
  const auto whole = std::pair(left, right);
  while (!left.empty() && !right.empty()) {
    if (is_digit(left.front()) && is_digit(right.front())) {
      const std::string_view one = take_number(left);
      const std::string_view other = take_number(right);
      if (one != other) {
        return std::pair(one.size(), one) < std::pair(other.size(), other);
      }
    } else if (left.front() != right.front()) {
      // As bytes: whether those beyond ASCII are negative depends on the machine.
      return left.substr(0, 1) < right.substr(0, 1);
    } else {
      left.remove_prefix(1);
      right.remove_prefix(1);
    }
  }
  // cn1 and cn01 are two nodes.
  return left.empty() && right.empty() ? whole.first < whole.second : left.empty();
}

std::vector<NodeGroup> group_nodes(const PostprocessorExtensionData& data,
                                   const SeverityBandTable& bands) {
  States states = states_of_nodes(data, bands);
  std::vector<NodeGroup> groups = take_racks(states);
  std::vector<NodeGroup> others = group_by_prefix(states);
  std::move(others.begin(), others.end(), std::back_inserter(groups));
  for (NodeGroup& group : groups) {
    std::sort(group.nodes.begin(), group.nodes.end(), [](const auto& left, const auto& right) {
      return comes_before(left.name, right.name);
    });
  }
  return groups;
}

}  // namespace vond_html
