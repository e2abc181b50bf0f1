#include "standalone/report/collapser.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "standalone/report/issue_order.h"
#include "standalone/report/issues_by_id.h"

namespace vond::standalone {
namespace {

void sort_row_ids(std::vector<CollapsedIssue>& issues) {
  for (CollapsedIssue& issue : issues) {
    for (CollapsedOutput& output : issue.outputs) {
      std::vector<int>& row_ids = output.row_ids;
      std::sort(row_ids.begin(), row_ids.end());
      row_ids.erase(std::unique(row_ids.begin(), row_ids.end()), row_ids.end());
    }
  }
}

}  // namespace

Collapser::Collapser(CollapseBy collapse_by) : collapse_by_(collapse_by) {}

void Collapser::add(const Finding& finding) {
  ++findings_;
  nodes_.clear();
  for (const std::string_view node : finding.nodes) {
    nodes_.push_back(node_names_.id_of(node));
  }
  if (collapse_by_ == CollapseBy::PATTERN) {
    by_pattern_.add(finding, nodes_);
  } else {
    by_text_.add(finding, nodes_);
  }
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
