#include "issue_sections.h"

#include <iostream>
#include <optional>

#include "statement.h"
#include "vond/str/string_functions.h"

namespace vond_output_log {

using vond::extension::BandIssues;
using vond::extension::find_band;
using vond::extension::Issue;
using vond::extension::IssueView;
using vond::postprocessor::ALL_OBSERVATIONS;
using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::FAIL_BIT;
using vond::postprocessor::PostprocessorExtensionData;
using vond::vocabulary::descending_bands;
using vond::vocabulary::SeverityBand;

namespace {

/// Returns a section's number of issues; nothing, after a message, when the record lacks a count.
std::optional<int> count_issues(const PostprocessorExtensionData& data, unsigned section_bit) {
  try {
    return data.counts_by_mask.at(section_bit | DIAGNOSES) +
           data.counts_by_mask.at(section_bit | ALL_OBSERVATIONS);
  } catch (...) {
    // Straight to standard error, past the error log and its level; that is wanted.
    std::cerr << "Error getting number of issues.\n";
    return std::nullopt;
  }
}

}  // namespace

int IssueSections::print(bool other) {
  // 1. The heading.
  write_wrapped(other ? "Other issues (not contributing to FAIL)\n"
                      : "Issues contributing to FAIL\n");

  // 2. The number of issues; without any, a notice is all, whatever the index holds.
  const unsigned section_bit = other ? 0 : FAIL_BIT;
  const std::optional<int> count = count_issues(data_, section_bit);
  if (!count) {
    return 1;
  }
  const bool has_issues = *count != 0;
  if (has_issues) {
    write("\n");
  }
  // With issues the notice is an empty text, wrapped and written even so; that is wanted.
  write_wrapped(has_issues ? "" : "No issues detected.\n\n");
  if (!has_issues) {
    return 0;
  }

  // 3. The bands, worst first.
  for (const SeverityBand& band : descending_bands(bands_)) {
    print_band(band, section_bit);
  }
  return 0;
}

void IssueSections::print_band(const SeverityBand& band, unsigned section_bit) {
  const auto& [lower, upper_bound, severity, name] = band;
  const BandIssues issues = find_band(*data_.issues_by_mask, severity, section_bit);
  if (issues.empty()) {
    return;
  }
  write_wrapped(vond::str::upper(name) + ":\n");
  print_diagnoses(issues.diagnoses);
  print_observations(issues.observations, issues.missing_data);
}

void IssueSections::print_diagnoses(const IssueView& diagnoses) {
  if (diagnoses.empty()) {
    return;
  }
  write_wrapped("Diagnoses\n");
  const int width = number_width(diagnoses.size());
  int number = 0;
  for (const Issue& issue : diagnoses) {
    ++number;
    if (issue) {
      block_.print(issue, {number, width}, "", true);
    }
    // An entry without an issue leaves its blank line behind, unlike one among the observations;
    // that is wanted.
    write("\n");
  }
}

void IssueSections::print_observations(const IssueView& observations,
                                       const IssueView& missing_data) {
  if (observations.empty() && missing_data.empty()) {
    return;
  }
  write_wrapped("Observations\n");
  const int width = number_width(observations.size() + missing_data.size());
  int number = 0;
  for (const IssueView* group : {&observations, &missing_data}) {
    for (const Issue& issue : *group) {
      ++number;
      if (issue) {
        block_.print(issue, {number, width}, "", false);
        write("\n");
      }
    }
  }
}

void IssueSections::write_wrapped(const std::string& text) {
  write(vond::str::word_wrap(text, data_.line_width, ""));
}

int IssueSections::number_width(std::size_t issues) const {
  return utilities_.GetDigits(static_cast<int>(issues));
}

}  // namespace vond_output_log
