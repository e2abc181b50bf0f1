#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_html {

/// What a band has, and the first issues of each kind.
struct BandSummary {
  using Issues = std::vector<const vond::postprocessor::CollapsedAnalysisOutput*>;

  /// How many issues of a kind the page names.
  static constexpr std::size_t MOST_DIAGNOSES = 20;
  static constexpr std::size_t MOST_OTHERS = 10;

  vond::vocabulary::SeverityBand band;
  bool fails = false;
  std::size_t diagnoses = 0;
  std::size_t observations = 0;
  /// Observations that a diagnosis explains.
  std::size_t explained = 0;
  std::size_t without_data = 0;
  Issues first_diagnoses;
  /// Observations that no diagnosis explains.
  Issues first_unexplained;
  Issues first_without_data;
  /// Distinct nodes of issues that contribute to FAIL; views of their names.
  std::unordered_set<std::string_view> failing_nodes;

  std::size_t issues() const { return diagnoses + observations + without_data; }
  std::size_t unexplained() const { return observations - explained; }

  /// Returns "3 diagnoses, 9 observations (8 explained), 1 without data", or "none".
  std::string counts() const;
};

/// Returns a summary of each band, the worst first. The record must outlive them.
std::vector<BandSummary> summarize_bands(
    const vond::postprocessor::PostprocessorExtensionData& data,
    const vond::vocabulary::SeverityBandTable& bands);

}  // namespace vond_html
