#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "vond/fwd.h"

namespace vond::standalone {

/// The definitions of a hierarchy that fail, in the order of the tree. Refers to the hierarchy,
/// which must outlive it.
class FailingDefinitions {
 public:
  explicit FailingDefinitions(const FwdHierarchy& hierarchy);

  std::size_t size() const { return definitions_.size(); }

  /// Returns the names of the first `count` of them, at least 1. Those below a root that fails
  /// stand in its brackets, without its name: "compute (hardware, hardware/gpus), network".
  std::string first(std::size_t count) const;

 private:
  struct Definition {
    const std::string* name;
    /// Of the root that it stands below, when that one fails, too; null otherwise.
    const std::string* failing_root;
  };

  void collect(const FwdNode& node, const std::string* failing_root);

  std::vector<Definition> definitions_;
};

}  // namespace vond::standalone
