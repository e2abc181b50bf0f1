#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "vond/fwd.h"

namespace vond_metrics {

/// Which definitions fail, each name once: a hierarchy may have a definition in several places, and
/// a failure in one of them counts. Skipped definitions are left out, for they neither pass nor
/// fail.
class DefinitionStates {
 public:
  struct State {
    /// The full name, as a label.
    std::string name;
    bool failed = false;
  };

  explicit DefinitionStates(const vond::FwdHierarchy& hierarchy);

  /// In the order of the tree.
  const std::vector<State>& states() const { return states_; }

 private:
  void add_tree(const vond::FwdNode& node);
  void add(const vond::Fwd& definition);

  std::vector<State> states_;
  std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace vond_metrics
