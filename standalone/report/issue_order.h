#pragma once

#include <vector>

#include "standalone/report/collapsed_issue.h"

namespace vond::standalone {

/// Counts the distinct nodes of the outputs and of the issue.
void count_nodes(CollapsedIssue& issue);

/// Sorts as a report lists them: by severity (high first), number of distinct nodes (many first),
/// and bytes, whatever the order before. Nodes must have been counted.
void sort_for_report(std::vector<CollapsedOutput>& outputs);
void sort_for_report(std::vector<CollapsedIssue>& issues);

}  // namespace vond::standalone
