#include "standalone/report/record_issues.h"

#include <functional>
#include <string>
#include <utility>

namespace vond::standalone {
namespace {

/// Takes the texts and frees the node numbers, so that no two copies of an issue's nodes stay.
std::shared_ptr<analysis::AnalysisOutput> make_output(std::string id, CollapsedOutput& collapsed,
                                                      const StringInterner& node_names) {
  auto output = std::make_shared<analysis::AnalysisOutput>();
  output->identifier = std::move(id);
  auto& [message, remedy, category] = collapsed.texts;
  output->category = std::move(category);
  output->message = std::move(message) + collapsed.note;
  output->remedy = std::move(remedy);
  output->node_names.reserve(collapsed.nodes.size());
  for (const StringInterner::Id node : std::exchange(collapsed.nodes, {})) {
    output->node_names.push_back(node_names[node]);
  }
  output->row_ids = std::move(collapsed.row_ids);
  output->row_ids.shrink_to_fit();
  return output;
}

void fill_issue(RecordIssues::Issue& issue, CollapsedIssue& collapsed,
                const StringInterner& node_names) {
  for (CollapsedOutput& output : collapsed.outputs) {
    const bool is_last = &output == &collapsed.outputs.back();
    issue.outputs.push_back(
        make_output(is_last ? std::move(collapsed.id) : collapsed.id, output, node_names));
  }
  for (std::string& name : collapsed.definitions) {
    issue.fwd_names.insert(issue.fwd_names.end(), std::move(name));
  }
}

}  // namespace

RecordIssues::~RecordIssues() {
  for (Issue& issue : *issues_) {
    issue.related_issues.clear();
  }
}

std::optional<std::size_t> RecordIssues::number_of(const Issue& issue) const {
  const Issue* const first = issues_->data();
  // Pointers into different arrays have an order with std::less alone.
  if (std::less<>()(&issue, first) || !std::less<>()(&issue, first + issues_->size())) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(&issue - first);
}

void RecordIssues::fill(std::vector<CollapsedIssue> collapsed, const StringInterner& node_names) {
  for (std::size_t number = 0; number < collapsed.size(); ++number) {
    fill_issue((*issues_)[number], collapsed[number], node_names);
  }
}

}  // namespace vond::standalone
