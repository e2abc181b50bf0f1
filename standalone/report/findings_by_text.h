#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <span>
#include <vector>

#include "standalone/model/finding.h"
#include "standalone/report/collapsed_issue.h"
#include "standalone/report/wording_numbers.h"

namespace vond::standalone {

/// Gathers findings of one wording.
class FindingsByText {
 public:
  /// `nodes` are the numbers of the finding's nodes.
  void add(const Finding& finding, std::span<const StringInterner::Id> nodes);

  /// Returns an issue for each wording, with one output, in any order, and forgets the findings.
  /// Nodes are not counted yet.
  std::vector<CollapsedIssue> finish();

 private:
  /// Where a wording was found.
  struct Places {
    std::vector<StringInterner::Id> nodes;
    std::vector<int> row_ids;
    /// When the first finding was seen, where that is known.
    std::optional<std::time_t> first_seen;
  };

  WordingNumbers wordings_;
  /// By the numbers of wordings.
  std::vector<Places> places_;
};

}  // namespace vond::standalone
