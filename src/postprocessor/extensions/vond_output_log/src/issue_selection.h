#pragma once

#include <exception>
#include <string>

#include "error_report.h"
#include "vond/fwd.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_output_log {

/// Looks issues up by the name of their band. What it is made of must outlive it.
class BandLookup {
 public:
  /// `bands` is a file's own table, not a copy: an unknown name adds a row of zeros to it.
  BandLookup(vond::vocabulary::SeverityBandTable& bands, int fail_threshold)
      : bands_(bands), fail_threshold_(fail_threshold) {}

  /// Returns the index entry of one band and type code, null without one.
  const vond::postprocessor::IssueList* find(const vond::postprocessor::IssuesByMask& index,
                                             const std::string& band_name,
                                             unsigned char type_code) const;

 private:
  vond::vocabulary::SeverityBandTable& bands_;
  int fail_threshold_;
};

/// Keeps the issues that name the definition, by its full name.
void keep_issues_of(vond::postprocessor::IssueList& issues, const vond::Fwd& fwd);

/// Runs `select`. Returns 0, or 1 after a report in the error log when it threw.
template <typename Select>
int report_selection_errors(Select select) {
  try {
    select();
  } catch (const std::exception& error) {
    return report_error(GET_DETAILS_BY_SEVERITY, error);
  }
  return 0;
}

/// Sets both lists to one band's issues, missing data behind the other observations.
/// `find(issues, type_code)` sets `issues`, empty on entry, to those of one type code. Returns 0,
/// or 1 after a report in the error log; the lists are then as far as they were filled.
template <typename Find>
int select_band(vond::postprocessor::IssueList& diagnoses,
                vond::postprocessor::IssueList& observations, Find find) {
  return report_selection_errors([&] {
    diagnoses.clear();
    observations.clear();
    find(diagnoses, vond::postprocessor::DIAGNOSES);
    find(observations, vond::postprocessor::OBSERVATIONS);
    vond::postprocessor::IssueList missing_data;
    find(missing_data, vond::postprocessor::MISSING_DATA);
    observations.insert(observations.end(), missing_data.begin(), missing_data.end());
  });
}

}  // namespace vond_output_log
