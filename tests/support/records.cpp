#include "tests/support/records.h"

namespace vond::test {

using postprocessor::SeverityMask;
using postprocessor::Type;

Issue make_issue(const IssueParts& parts) {
  auto output = std::make_shared<analysis::AnalysisOutput>();
  output->identifier = parts.id;
  output->category = parts.category;
  output->message = parts.message;
  output->node_names = parts.nodes;
  output->remedy = parts.remedy;
  output->row_ids = parts.row_ids;
  Issue issue = make_issue_without_outputs();
  issue->outputs.push_back(output);
  issue->fwd_names = parts.definitions;
  return issue;
}

Issue make_issue_without_outputs() {
  return std::make_shared<postprocessor::CollapsedAnalysisOutput>();
}

void add_output(const Issue& issue, const std::vector<std::string>& nodes) {
  auto output = std::make_shared<analysis::AnalysisOutput>();
  output->identifier = "id of a later output";
  output->category = "category of a later output";
  output->message = "message of a later output";
  output->node_names = nodes;
  output->remedy = "remedy of a later output";
  output->row_ids = {4711};
  issue->outputs.push_back(output);
}

void relate(const Issue& diagnosis, const Issue& observation) {
  diagnosis->related_issues[Type::OBSERVATION].insert(observation);
  observation->related_issues[Type::DIAGNOSIS].insert(diagnosis);
}

void forget_relations(const std::vector<Issue>& issues) {
  for (const Issue& issue : issues) {
    issue->related_issues.clear();
  }
}

Node make_definition(const DefinitionParts& parts,
                     const std::vector<std::vector<Node>>& child_groups) {
  auto node = std::make_shared<FwdNode>();
  node->fwd = std::make_shared<Fwd>();
  node->fwd->passed = parts.passed;
  node->fwd->name = parts.name;
  node->fwd->node = node.get();
  node->fwd->skipped = parts.skipped;
  for (const auto& [mask, count] : parts.counts) {
    node->fwd->issue_counts[mask] = count;
  }
  for (const auto& children : child_groups) {
    node->child_groups.push_back({children});
  }
  return node;
}

Data make_record() {
  Data data;
  data.fail_threshold = 75;
  data.counts_by_mask = {{0, 0}, {3, 0}, {16, 0}, {19, 0}};
  data.fwd_root = std::make_shared<FwdHierarchy>();
  data.issues_by_mask = std::make_shared<postprocessor::IssuesByMask>();
  data.log_level = "warning";
  return data;
}

void add_issue(Data& data, unsigned mask, const Issue& issue) {
  const unsigned section = mask & 16U;
  const bool is_diagnosis = (mask & 3U) == 0;
  (*data.issues_by_mask)[mask].push_back(issue);
  ++data.counts_by_mask[is_diagnosis ? section : section | 3U];
}

void add_issues(Data& data, unsigned mask, const std::string& stem, int count) {
  for (int number = 1; number <= count; ++number) {
    add_issue(data, mask, make_issue({.id = stem + std::to_string(number)}));
  }
}

}  // namespace vond::test
