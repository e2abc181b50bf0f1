#pragma once

#include <optional>
#include <vector>

#include "standalone/definitions/definition_tree.h"
#include "standalone/report/collapser.h"

namespace vond::standalone {

/// Returns the framework definitions, each with the counts of the issues that name it, and decided.
/// Without `specs` the tree is the one that the names in the issues spell. `fail_threshold` is on
/// the severity scale, 0 to 100. Throws InputError for a tree that is too deep.
DefinitionTree decide_definitions(const std::optional<std::vector<DefinitionSpec>>& specs,
                                  const std::vector<CollapsedIssue>& issues, int fail_threshold);

}  // namespace vond::standalone
