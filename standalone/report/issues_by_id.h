#pragma once

#include <vector>

#include "standalone/report/collapsed_issue.h"

namespace vond::standalone {

/// Makes issues of one type, id and severity band one, with an output for each message, remedy and
/// category, the first of which tells how many other messages there are. The issues that are given
/// have one output each, and may tell the same. Returns them in any order, with nodes counted.
std::vector<CollapsedIssue> merge_by_id(std::vector<CollapsedIssue> issues);

}  // namespace vond::standalone
