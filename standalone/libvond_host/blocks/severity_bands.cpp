#include "standalone/libvond_host/blocks/severity_bands.h"

#include <algorithm>

#include "vond/str/string_functions.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::standalone {
namespace {

using postprocessor::SeverityMask;

const IssueList* find_issues(const PostprocessorExtensionData& data, unsigned mask) {
  static const IssueList none;
  if (!data.issues_by_mask) {
    return &none;
  }
  const auto issues = data.issues_by_mask->find(SeverityMask(mask));
  return issues == data.issues_by_mask->end() ? &none : &issues->second;
}

}  // namespace

std::vector<SeverityBand> severity_bands(const PostprocessorExtensionData& data) {
  std::vector<SeverityBand> bands;
  for (const auto& [lower, upper, severity, name] :
       vocabulary::descending_bands(vocabulary::SEVERITY_BANDS)) {
    const unsigned fail_bit = postprocessor::fail_bit(upper, data.fail_threshold);
    const unsigned mask = static_cast<unsigned>(severity) | fail_bit;
    bands.push_back({.name = str::upper(name),
                     .contributes_to_fail = fail_bit != 0,
                     .diagnoses = find_issues(data, mask | postprocessor::DIAGNOSES),
                     .observations = find_issues(data, mask | postprocessor::OBSERVATIONS),
                     .checks_without_data = find_issues(data, mask | postprocessor::MISSING_DATA)});
  }
  return bands;
}

void add_nodes(const postprocessor::CollapsedAnalysisOutput& issue, NodeViews& nodes) {
  for (const auto& output : issue.outputs) {
    nodes.insert(output->node_names.begin(), output->node_names.end());
  }
}

void add_nodes(const IssueList& issues, NodeViews& nodes) {
  for (const auto& issue : issues) {
    add_nodes(*issue, nodes);
  }
}

NodeViews nodes_of(const SeverityBand& band) {
  NodeViews nodes;
  add_nodes(*band.diagnoses, nodes);
  add_nodes(*band.observations, nodes);
  add_nodes(*band.checks_without_data, nodes);
  return nodes;
}

std::vector<std::string> sorted_names(const NodeViews& nodes) {
  std::vector<std::string> names(nodes.begin(), nodes.end());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace vond::standalone
