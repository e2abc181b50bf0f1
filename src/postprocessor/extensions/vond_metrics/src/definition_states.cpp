#include "definition_states.h"

#include <utility>

#include "label_text.h"

namespace vond_metrics {

DefinitionStates::DefinitionStates(const vond::FwdHierarchy& hierarchy) {
  for (const auto& root : hierarchy.roots) {
    add_tree(*root);
  }
}

void DefinitionStates::add_tree(const vond::FwdNode& node) {
  add(*node.fwd);
  for (const auto& group : node.child_groups) {
    for (const auto& child : group.children) {
      add_tree(*child);
    }
  }
}

void DefinitionStates::add(const vond::Fwd& definition) {
  if (definition.skipped) {
    return;
  }
  std::string name = label_text(definition.name);
  const auto [place, is_new] = places_.try_emplace(name, states_.size());
  if (is_new) {
    states_.push_back({std::move(name), false});
  }
  if (!definition.passed) {
    states_[place->second].failed = true;
  }
}

}  // namespace vond_metrics
