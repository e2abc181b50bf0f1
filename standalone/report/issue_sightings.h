#pragma once

#include <vector>

#include "standalone/comparison/sightings.h"
#include "standalone/model/string_interner.h"
#include "standalone/report/collapsed_issue.h"

namespace vond::standalone {

/// Returns what the issues say was seen where, an item each, with numbers of `names`. The issues
/// are the collapser's, whose numbers of nodes mean `node_names`.
std::vector<SeenIssue> sightings_of(const std::vector<CollapsedIssue>& issues,
                                    const StringInterner& node_names, SeenNames& names);

}  // namespace vond::standalone
