#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "vond/postprocessor/severity.h"

namespace vond {

struct FwdNode;

/// One framework definition.
struct Fwd {
  /// Meaningless while `skipped` is set.
  bool passed = false;
  /// Number of issues of this definition by mask: diagnoses under type code 0, observations of all
  /// kinds under type code 3. A mask that is absent counts 0.
  std::map<postprocessor::SeverityMask, int, postprocessor::CompareBitset> issue_counts;
  /// The full name, as issues give it.
  std::string name;
  /// The definition's place in the hierarchy; not owned, it owns this definition.
  FwdNode* node = nullptr;
  bool skipped = false;
};

/// Children that belong together; what a group stands for is the host's business.
struct FwdChildGroup {
  std::vector<std::shared_ptr<FwdNode>> children;
};

/// A place in the framework-definition hierarchy.
struct FwdNode {
  std::shared_ptr<Fwd> fwd;
  std::vector<FwdChildGroup> child_groups;
};

/// The framework-definition hierarchy; every list in it is in the order of the report.
struct FwdHierarchy {
  std::vector<std::shared_ptr<FwdNode>> roots;
};

}  // namespace vond
