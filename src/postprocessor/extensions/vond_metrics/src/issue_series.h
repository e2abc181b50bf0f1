#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <unordered_set>
#include <vector>

#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_metrics {

/// The issues that metrics show as one: those with the same presentable id, band and type.
struct IssueSeries {
  /// As a label.
  std::string id;
  std::string band;
  vond::postprocessor::TypeCode type = vond::postprocessor::DIAGNOSES;
  std::vector<const vond::postprocessor::CollapsedAnalysisOutput*> issues;

  /// Returns on how many distinct nodes any of the issues was found.
  std::size_t count_nodes() const;
};

/// The series of the worst ids of a record, and how many ids are left out: a monitoring system pays
/// for each series, and a bad day of a cluster must not be one of its monitoring. Issues must
/// outlive this.
class WorstIssues {
 public:
  /// How many ids have series.
  static constexpr std::size_t MOST_IDS = 1000;

  WorstIssues(const vond::postprocessor::PostprocessorExtensionData& data,
              const vond::vocabulary::SeverityBandTable& bands);

  /// In the order of the report.
  const std::vector<IssueSeries>& series() const { return series_; }

  /// Returns how many ids have no series.
  std::size_t omitted_ids() const { return omitted_ids_.size(); }

 private:
  using Key = std::tuple<std::string, std::string, vond::postprocessor::TypeCode>;

  void add(const vond::postprocessor::CollapsedAnalysisOutput& issue, const Key& key);
  bool takes(const std::string& id);

  std::vector<IssueSeries> series_;
  std::map<Key, std::size_t> places_;
  std::unordered_set<std::string> ids_;
  std::unordered_set<std::string> omitted_ids_;
};

}  // namespace vond_metrics
