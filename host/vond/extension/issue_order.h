#pragma once

#include <tuple>

#include "vond/extension/issue_index.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond::extension {

/// Calls `visit(issue, band, type, fails)` for every issue of the index, each as often as it is
/// filed, in the order of the report: those that contribute to FAIL first, the worst band first,
/// and within a band diagnoses, observations, missing data. Entries without an issue are left out.
///
/// The arguments are a `const Issue&`, a `const vocabulary::SeverityBand&` that lives as long as
/// the call, a `postprocessor::TypeCode` and a `bool`.
template <typename Visit>
void for_each_issue(const postprocessor::IssuesByMask& index,
                    const vocabulary::SeverityBandTable& bands, Visit visit) {
  const auto visit_group = [&visit](IssueView issues, const vocabulary::SeverityBand& band,
                                    postprocessor::TypeCode type, bool fails) {
    for (const Issue& issue : issues) {
      if (issue) {
        visit(issue, band, type, fails);
      }
    }
  };
  const auto descending = vocabulary::descending_bands(bands);
  for (const bool fails : {true, false}) {
    for (const vocabulary::SeverityBand& band : descending) {
      const BandIssues issues =
          find_band(index, std::get<2>(band), fails ? postprocessor::FAIL_BIT : 0U);
      visit_group(issues.diagnoses, band, postprocessor::DIAGNOSES, fails);
      visit_group(issues.observations, band, postprocessor::OBSERVATIONS, fails);
      visit_group(issues.missing_data, band, postprocessor::MISSING_DATA, fails);
    }
  }
}

/// The same for every issue of the record.
template <typename Visit>
void for_each_issue(const postprocessor::PostprocessorExtensionData& data,
                    const vocabulary::SeverityBandTable& bands, Visit visit) {
  if (data.issues_by_mask) {
    for_each_issue(*data.issues_by_mask, bands, visit);
  }
}

/// The same with the bands of the severity scale.
///
///     for_each_issue(data, [](const Issue& issue, const auto& band, TypeCode type, bool fails) {
///       write(vocabulary::band_name(band) + " " + issue->get_id() + "\n");
///     });
template <typename Visit>
void for_each_issue(const postprocessor::PostprocessorExtensionData& data, Visit visit) {
  for_each_issue(data, vocabulary::standard_bands(), visit);
}

}  // namespace vond::extension
