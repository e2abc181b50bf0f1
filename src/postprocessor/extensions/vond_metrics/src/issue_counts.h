#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_metrics {

/// How many issues there are of a band and a type.
struct IssueCount {
  std::string band;
  vond::postprocessor::TypeCode type = vond::postprocessor::DIAGNOSES;
  /// To FAIL.
  bool contributes = false;
  std::size_t issues = 0;
};

/// Counts the issues of the record. What it can have is counted even if it is 0, since a series
/// that comes and goes cannot be compared with itself.
std::vector<IssueCount> count_issues(const vond::postprocessor::PostprocessorExtensionData& data,
                                     const vond::vocabulary::SeverityBandTable& bands);

}  // namespace vond_metrics
