#include "standalone/report/acknowledged_findings.h"

#include <utility>

namespace vond::standalone {

AcknowledgedFindings::AcknowledgedFindings(std::vector<Acknowledgement> entries, std::time_t at,
                                           CollapseBy collapse_by)
    : entries_(std::move(entries)), at_(at), uses_(entries_.size()), collapser_(collapse_by) {}

std::set<std::string, std::less<>> AcknowledgedFindings::ids_of_observations() const {
  std::set<std::string, std::less<>> ids;
  for (const CollapsedIssue& issue : issues_) {
    if (issue.type != postprocessor::DIAGNOSES) {
      ids.insert(issue.id);
    }
  }
  return ids;
}

}  // namespace vond::standalone
