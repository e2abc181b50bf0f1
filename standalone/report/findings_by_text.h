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
  /// Less memory is not worth the time.
  static constexpr std::size_t FEWEST_MANY_NODES = std::size_t{1} << 16U;

  /// Where a wording was found.
  struct Places {
    void add_nodes(std::span<const StringInterner::Id> more);

    std::vector<StringInterner::Id> nodes;
    std::vector<int> row_ids;
    bool has_finding_without_node = false;
    /// When the first finding was seen, where that is known.
    std::optional<std::time_t> first_seen;
    /// The size of `nodes` from which on those that have come again are taken out.
    std::size_t many_nodes = FEWEST_MANY_NODES;
  };

  WordingNumbers wordings_;
  /// By the numbers of wordings.
  std::vector<Places> places_;
};

}  // namespace vond::standalone
