#pragma once

#include <string>
#include <vector>

#include "standalone/report/collapser.h"
#include "standalone/report/record_issues.h"

namespace vond::standalone {

/// Relates every diagnosis to the issues that it is based on, and these to it. An id stands for all
/// issues that have it and are no diagnoses. `issues` are those of `collapsed`, with the same
/// numbers. Returns the ids of `based_on` that stand for nothing, sorted.
std::vector<std::string> relate_issues(const std::vector<CollapsedIssue>& collapsed,
                                       const RecordIssues& issues);

}  // namespace vond::standalone
