#include "standalone/report/report_record.h"

#include <cstddef>
#include <memory>
#include <utility>

#include "standalone/report/decided_definitions.h"
#include "standalone/report/issue_masks.h"
#include "standalone/report/issue_sightings.h"
#include "standalone/report/related_issues.h"
#include "standalone/text/utc_time.h"

namespace vond::standalone {

using postprocessor::ALL_OBSERVATIONS;
using postprocessor::DIAGNOSES;
using postprocessor::FAIL_BIT;

ReportRecord::ReportRecord(Collapser& collapser, const RecordOptions& options,
                           Collapser* everything)
    : ReportRecord(collapser.finish(), collapser.node_names(), options) {
  if (everything == nullptr) {
    take_kept(collapser.take_kept());
  } else {
    sources_.clear();
    take_kept(everything->finish());
  }
}

ReportRecord::ReportRecord(std::vector<CollapsedIssue> collapsed, const StringInterner& node_names,
                           const RecordOptions& options)
    : issues_(collapsed.size()), keeps_findings_(options.keeps_findings) {
  data_.fail_threshold = options.fail_threshold;
  data_.line_width = options.line_width;
  data_.log_level = options.log_level;
  unknown_based_on_ = relate_issues(collapsed, issues_);
  file_issues(collapsed);
  hang_definitions(collapsed, options.definitions);
  note_severities(collapsed);
  note_first_seen(collapsed);
  if (keeps_findings_) {
    keep_sources(collapsed);
  }
  if (options.seen_names != nullptr) {
    sightings_ = sightings_of(collapsed, node_names, *options.seen_names);
  }
  take_findings(collapsed);
  issues_.fill(std::move(collapsed), node_names);
}

bool ReportRecord::has_failed() const {
  return data_.counts_by_mask.at(FAIL_BIT | DIAGNOSES) != 0 ||
         data_.counts_by_mask.at(FAIL_BIT | ALL_OBSERVATIONS) != 0;
}

void ReportRecord::file_issues(const std::vector<CollapsedIssue>& collapsed) {
  // Extensions look all four up.
  for (const unsigned section : {0U, FAIL_BIT}) {
    data_.counts_by_mask[section | DIAGNOSES] = 0;
    data_.counts_by_mask[section | ALL_OBSERVATIONS] = 0;
  }
  data_.issues_by_mask = std::make_shared<postprocessor::IssuesByMask>();
  for (std::size_t number = 0; number < collapsed.size(); ++number) {
    const CollapsedIssue& issue = collapsed[number];
    ++data_.counts_by_mask[total_count_mask(issue, data_.fail_threshold)];
    (*data_.issues_by_mask)[file_mask(issue, data_.fail_threshold)].push_back(issues_[number]);
  }
}

void ReportRecord::hang_definitions(const std::vector<CollapsedIssue>& collapsed,
                                    const std::optional<std::vector<DefinitionSpec>>& specs) {
  const DefinitionTree tree = decide_definitions(specs, collapsed, data_.fail_threshold);
  data_.fwd_root = tree.hierarchy();
  unknown_definitions_ = tree.unknown_names();
}

void ReportRecord::note_severities(const std::vector<CollapsedIssue>& collapsed) {
  severities_.reserve(collapsed.size());
  for (const CollapsedIssue& issue : collapsed) {
    severities_.push_back(issue.severity);
  }
}

void ReportRecord::note_first_seen(const std::vector<CollapsedIssue>& collapsed) {
  for (std::size_t number = 0; number < collapsed.size(); ++number) {
    const CollapsedIssue& issue = collapsed[number];
    std::optional<std::time_t> first = issue.findings ? issue.findings->first_seen() : std::nullopt;
    for (const CollapsedOutput& output : issue.outputs) {
      first = earliest(first, output.first_seen);
    }
    if (first) {
      first_seen_.emplace(number, *first);
    }
  }
}

/// Keeps what findings by pattern share.
void ReportRecord::keep_sources(const std::vector<CollapsedIssue>& issues) {
  for (const CollapsedIssue& issue : issues) {
    if (issue.findings) {
      sources_.push_back({issue.type, issue.id, issue.outputs[0].texts.category, issue.definitions,
                          issue.based_on});
    }
  }
}

void ReportRecord::take_kept(std::vector<CollapsedIssue> kept) {
  keep_sources(kept);
  for (CollapsedIssue& issue : kept) {
    kept_.push_back(std::move(*issue.findings));
  }
}

void ReportRecord::take_findings(std::vector<CollapsedIssue>& collapsed) {
  findings_.reserve(collapsed.size());
  for (CollapsedIssue& issue : collapsed) {
    if (issue.findings) {
      findings_.push_back(std::move(*issue.findings));
    }
  }
}

}  // namespace vond::standalone
