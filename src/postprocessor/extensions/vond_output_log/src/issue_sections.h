#pragma once

#include <cstddef>
#include <string>

#include "issue_block.h"
#include "issue_summaries.h"
#include "vond/extension/issue_index.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_output_log {

/// The two sections that list all issues. What it is made of must outlive it.
class IssueSections {
 public:
  IssueSections(const vond::postprocessor::PostprocessorExtensionData& data,
                const vond::vocabulary::SeverityBandTable& bands,
                const vond::postprocessor::UtilityFunctions& utilities,
                vond::postprocessor::StringInterface& strings, IssueSummaries& summaries)
      : data_(data), bands_(bands), utilities_(utilities), block_(data, strings, summaries) {}

  /// Writes the section of the issues that contribute to FAIL or, with `other`, that of all others.
  /// Returns 0, or 1, with a message on standard error, when the record lacks the section's counts.
  int print(bool other);

 private:
  /// Writes one band of a section: nothing when it has no issues.
  void print_band(const vond::vocabulary::SeverityBand& band, unsigned section_bit);
  void print_diagnoses(const vond::extension::IssueView& diagnoses);
  /// Writes both kinds of observations as one group, in one run of numbers.
  void print_observations(const vond::extension::IssueView& observations,
                          const vond::extension::IssueView& missing_data);
  void write_wrapped(const std::string& text);
  int number_width(std::size_t issues) const;

  const vond::postprocessor::PostprocessorExtensionData& data_;
  const vond::vocabulary::SeverityBandTable& bands_;
  const vond::postprocessor::UtilityFunctions& utilities_;
  IssueBlock block_;
};

}  // namespace vond_output_log
