#include "issue_counts.h"

#include "vond/extension/issue_index.h"

namespace vond_metrics {

using vond::extension::IssueView;
using vond::postprocessor::FAIL_BIT;
using vond::postprocessor::fail_bit;

namespace {

std::size_t count_under(const vond::postprocessor::PostprocessorExtensionData& data,
                        unsigned mask) {
  std::size_t count = 0;
  if (data.issues_by_mask) {
    for (const auto& issue : IssueView(vond::extension::find_issues(*data.issues_by_mask, mask))) {
      count += issue ? 1 : 0;
    }
  }
  return count;
}

}  // namespace

std::vector<IssueCount> count_issues(const vond::postprocessor::PostprocessorExtensionData& data,
                                     const vond::vocabulary::SeverityBandTable& bands) {
  std::vector<IssueCount> counts;
  for (const auto& [lower, upper, severity, name] : vond::vocabulary::descending_bands(bands)) {
    const unsigned own_section = fail_bit(upper, data.fail_threshold);
    for (const auto type : {vond::postprocessor::DIAGNOSES, vond::postprocessor::OBSERVATIONS,
                            vond::postprocessor::MISSING_DATA}) {
      for (const unsigned section : {FAIL_BIT, 0U}) {
        const std::size_t issues =
            count_under(data, static_cast<unsigned>(severity) | section | type);
        if (section == own_section || issues != 0) {
          counts.push_back({name, type, section == FAIL_BIT, issues});
        }
      }
    }
  }
  return counts;
}

}  // namespace vond_metrics
