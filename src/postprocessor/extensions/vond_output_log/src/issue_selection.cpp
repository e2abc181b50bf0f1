#include "issue_selection.h"

#include <utility>

#include "vond/extension/issue_index.h"

namespace vond_output_log {

using vond::extension::band_mask;
using vond::extension::find_issues;
using vond::postprocessor::IssueList;
using vond::postprocessor::IssuesByMask;

const IssueList* BandLookup::find(const IssuesByMask& index, const std::string& band_name,
                                  unsigned char type_code) const {
  const auto& [lower, upper_bound, severity] = bands_[band_name];
  return find_issues(index, band_mask(severity, upper_bound, fail_threshold_) + type_code);
}

void keep_issues_of(IssueList& issues, const vond::Fwd& fwd) {
  const IssueList candidates = std::exchange(issues, {});
  for (const auto& issue : candidates) {
    if (issue && issue->fwd_names.contains(fwd.name)) {
      issues.push_back(issue);
    }
  }
}

}  // namespace vond_output_log
