#include "issue_counts.h"

#include "vond/extension/issue_index.h"

namespace vond_metrics {

using vond::postprocessor::FAIL_BIT;
using vond::postprocessor::fail_bit;

std::vector<IssueCount> count_issues(const vond::postprocessor::PostprocessorExtensionData& data,
                                     const vond::vocabulary::SeverityBandTable& bands) {
  const vond::postprocessor::IssuesByMask none;
  const auto& index = data.issues_by_mask ? *data.issues_by_mask : none;
  std::vector<IssueCount> counts;
  for (const auto& [lower, upper, severity, name] : vond::vocabulary::descending_bands(bands)) {
    const unsigned own_section = fail_bit(upper, data.fail_threshold);
    for (const auto type : {vond::postprocessor::DIAGNOSES, vond::postprocessor::OBSERVATIONS,
                            vond::postprocessor::MISSING_DATA}) {
      for (const unsigned section : {FAIL_BIT, 0U}) {
        const std::size_t issues =
            vond::extension::count_issues(index, static_cast<unsigned>(severity) | section | type);
        if (section == own_section || issues != 0) {
          counts.push_back({name, type, section == FAIL_BIT, issues});
        }
      }
    }
  }
  return counts;
}

}  // namespace vond_metrics
