#include "issue_series.h"

#include <string_view>

#include "label_text.h"
#include "vond/extension/issue_order.h"
#include "vond/postprocessor/utility_functions.h"

namespace vond_metrics {

using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::UtilityFunctions;

std::size_t IssueSeries::count_nodes() const {
  // Grows with the nodes of the cluster, not with how often they are named.
  std::unordered_set<std::string_view> names;
  for (const CollapsedAnalysisOutput* issue : issues) {
    for (const auto& output : issue->outputs) {
      names.insert(output->node_names.begin(), output->node_names.end());
    }
  }
  return names.size();
}

WorstIssues::WorstIssues(const vond::postprocessor::PostprocessorExtensionData& data,
                         const vond::vocabulary::SeverityBandTable& bands) {
  const auto add_issue = [this](const vond::extension::Issue& issue,
                                const vond::vocabulary::SeverityBand& band,
                                vond::postprocessor::TypeCode type, bool /*fails*/) {
    const std::string id = label_text(UtilityFunctions::get_usable_id(issue->get_id()));
    if (takes(id)) {
      add(*issue, {id, vond::vocabulary::band_name(band), type});
    }
  };
  vond::extension::for_each_issue(data, bands, add_issue);
}

void WorstIssues::add(const CollapsedAnalysisOutput& issue, const Key& key) {
  const auto [place, is_new] = places_.try_emplace(key, series_.size());
  if (is_new) {
    const auto& [id, band, type] = key;
    series_.push_back({id, band, type, {}});
  }
  series_[place->second].issues.push_back(&issue);
}

// Issues come worst first, so an id that comes late is not among the worst.
bool WorstIssues::takes(const std::string& id) {
  if (ids_.size() < MOST_IDS) {
    ids_.insert(id);
    return true;
  }
  if (ids_.contains(id)) {
    return true;
  }
  omitted_ids_.insert(id);
  return false;
}

}  // namespace vond_metrics
