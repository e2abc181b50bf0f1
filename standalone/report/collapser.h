#pragma once

#include <cstddef>
#include <vector>

#include "standalone/model/finding.h"
#include "standalone/model/string_interner.h"
#include "standalone/report/collapsed_issue.h"
#include "standalone/report/findings_by_pattern.h"
#include "standalone/report/findings_by_text.h"

namespace vond::standalone {

/// Collapses findings into issues. Memory grows with the number of issues and of the values, nodes
/// and row ids in them, not with the findings' texts.
class Collapser {
 public:
  /// With `keeps_findings` finish() leaves what all findings said, however they are collapsed.
  explicit Collapser(CollapseBy collapse_by = CollapseBy::PATTERN, bool keeps_findings = false);
  Collapser(const Collapser&) = delete;
  Collapser& operator=(const Collapser&) = delete;

  /// All findings must come from one reader, for readers number wordings each on its own.
  void add(const Finding& finding);

  /// Returns the issues in the order of the report, which is that of severity (high first), number
  /// of distinct nodes (many first), and bytes; it does not depend on the order of the findings.
  /// Leaves the collapser without issues. Those by pattern need the collapser for their `findings`.
  std::vector<CollapsedIssue> finish();

  /// Behind finish(), when findings are kept and were not collapsed by pattern: what they said, as
  /// issues by pattern in the order of the report. Needs the collapser. Else nothing.
  std::vector<CollapsedIssue> take_kept();

  std::size_t findings() const { return findings_; }

  /// All nodes that findings name.
  const StringInterner& node_names() const { return node_names_; }

 private:
  std::vector<CollapsedIssue> take_issues();

  CollapseBy collapse_by_;
  bool keeps_findings_;
  std::size_t findings_ = 0;
  StringInterner node_names_;
  FindingsByPattern by_pattern_;
  FindingsByText by_text_;
  /// Those of the finding that is being added. Kept for its memory.
  std::vector<StringInterner::Id> nodes_;
};

}  // namespace vond::standalone
