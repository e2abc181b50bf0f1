#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "vond/postprocessor/severity.h"

/// What a severity band table is, without one: for files that are handed the table of another.
namespace vond::vocabulary {

/// Band name to lower bound, upper bound (both inclusive, on the severity scale of 0 to 100) and
/// severity.
using SeverityBandTable = std::map<std::string, std::tuple<int, int, postprocessor::Severity>>;

/// Lower bound, upper bound, severity and name of a band.
using SeverityBand = std::tuple<int, int, postprocessor::Severity, std::string>;

/// Returns the name of a band, "critical" for example. Lives as long as `band`.
inline const std::string& band_name(const SeverityBand& band) { return std::get<3>(band); }

/// Returns the three bands of the severity scale.
inline SeverityBandTable standard_bands() {
  return {
      {"informational", {0, 24, postprocessor::Severity::INFORMATIONAL}},
      {"warning", {25, 74, postprocessor::Severity::WARNING}},
      {"critical", {75, 100, postprocessor::Severity::CRITICAL}},
  };
}

/// Returns the rows of `table` in the order of reports: descending, so the worst band is first.
inline std::vector<SeverityBand> descending_bands(const SeverityBandTable& table) {
  std::vector<SeverityBand> bands;
  bands.reserve(table.size());
  for (const auto& [name, row] : table) {
    const auto& [lower, upper, severity] = row;
    bands.emplace_back(lower, upper, severity, name);
  }
  std::sort(bands.begin(), bands.end(), std::greater<>());
  return bands;
}

}  // namespace vond::vocabulary
