#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "standalone/acknowledged/acknowledgement_coverage.h"
#include "standalone/model/finding.h"
#include "standalone/report/acknowledged_findings.h"
#include "standalone/report/held_findings.h"

namespace vond::standalone {

/// Takes pairs of a finding and a node that are acknowledged out of what is read. A finding goes on
/// with the nodes that are left, as if it had been said of these alone.
class AcknowledgementFilter {
 public:
  using Taker = std::function<void(const Finding&)>;

  /// What is acknowledged goes to `acknowledged`, of which a reference is kept, what is left to
  /// `take_left`.
  AcknowledgementFilter(AcknowledgedFindings& acknowledged, Taker take_left);

  /// All findings must come from one reader. An observation that a diagnosis might cover waits.
  void add(const Finding& finding);

  /// All findings were read: decides about those that wait.
  void finish();

 private:
  void tell_diagnosis(const Finding& finding);
  bool has_to_wait(const Finding& finding) const;
  void part(const Finding& finding);
  bool take_note(const Wording& wording, std::string_view node);

  AcknowledgedFindings& acknowledged_;
  Taker take_left_;
  AcknowledgementCoverage coverage_;
  HeldFindings held_;
  /// Those of the finding that is being parted. Kept for their memory.
  std::vector<std::string_view> covered_nodes_;
  std::vector<std::string_view> left_nodes_;
};

}  // namespace vond::standalone
