#pragma once

#include <cstddef>
#include <vector>

#include "standalone/model/flat_index.h"
#include "standalone/report/collapsed_issue.h"

namespace vond::standalone {

/// Issues by pattern, of which those become one that are equal when all findings are known: their
/// patterns differ, but not where they have come to hold one value.
class JoinedIssues {
 public:
  /// `most_issues` will be added at most.
  explicit JoinedIssues(std::size_t most_issues) { issues_.reserve(most_issues); }

  /// `issue` has `findings`, and one output that tells its severity and category alone.
  void add(CollapsedIssue issue);

  /// Returns the issues in any order, and forgets them.
  std::vector<CollapsedIssue> take();

 private:
  std::vector<CollapsedIssue> issues_;
  /// By hashes of the issues.
  FlatIndex index_;
};

}  // namespace vond::standalone
