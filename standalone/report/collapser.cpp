#include "standalone/report/collapser.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "standalone/nodes/number_sorting.h"
#include "standalone/report/issue_order.h"
#include "standalone/report/issues_by_id.h"

namespace vond::standalone {
namespace {

void sort_row_ids(std::vector<CollapsedIssue>& issues) {
  for (CollapsedIssue& issue : issues) {
    for (CollapsedOutput& output : issue.outputs) {
      sort_unique(output.row_ids);
    }
  }
}

}  // namespace

Collapser::Collapser(CollapseBy collapse_by, bool keeps_findings)
    : collapse_by_(collapse_by), keeps_findings_(keeps_findings) {}

void Collapser::add(const Finding& finding) {
  findings_ += finding.count;
  nodes_.clear();
  for (const std::string_view node : finding.nodes) {
    nodes_.push_back(node_names_.id_of(node));
  }
  if (collapse_by_ == CollapseBy::PATTERN || keeps_findings_) {
    by_pattern_.add(finding, nodes_);
  }
  if (collapse_by_ != CollapseBy::PATTERN) {
    by_text_.add(finding, nodes_);
  }
}

std::vector<CollapsedIssue> Collapser::take_kept() {
  if (!keeps_findings_ || collapse_by_ == CollapseBy::PATTERN) {
    return {};
  }
  std::vector<CollapsedIssue> issues = by_pattern_.finish(node_names_);
  std::for_each(issues.begin(), issues.end(), count_nodes);
  sort_for_report(issues);
  return issues;
}

std::vector<CollapsedIssue> Collapser::finish() {
  std::vector<CollapsedIssue> issues = take_issues();
  sort_for_report(issues);
  sort_row_ids(issues);
  return issues;
}

/// Returns the issues in any order, with nodes counted.
std::vector<CollapsedIssue> Collapser::take_issues() {
  if (collapse_by_ == CollapseBy::ID) {
    return merge_by_id(by_text_.finish());
  }
  std::vector<CollapsedIssue> issues =
      collapse_by_ == CollapseBy::PATTERN ? by_pattern_.finish(node_names_) : by_text_.finish();
  std::for_each(issues.begin(), issues.end(), count_nodes);
  return issues;
}

}  // namespace vond::standalone
