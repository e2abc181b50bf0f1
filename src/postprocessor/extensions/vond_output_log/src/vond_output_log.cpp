#include "vond_output_log.h"

#include <iostream>
#include <string>

#include "statement.h"
#include "vond/str/string_functions.h"
#include "vond/util/engine_helper.h"
#include "vond/vocabulary/month_names.h"

namespace vond_output_log {

using vond::postprocessor::ALL_OBSERVATIONS;
using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::FAIL_BIT;
using vond::postprocessor::IssueList;
using vond::postprocessor::IssuesByMask;
using vond::postprocessor::MISSING_DATA;
using vond::postprocessor::OBSERVATIONS;
using vond::postprocessor::SeverityMask;
using vond::vocabulary::descending_bands;
using vond::vocabulary::SEVERITY_BANDS;

namespace {

void write_rule() { write(std::string(80, '-') + "\n"); }

/// Returns the index entry of a mask, an empty list without one.
const IssueList& find_group(const IssuesByMask& index, unsigned mask) {
  static const IssueList NO_ISSUES;
  const auto entry = index.find(SeverityMask(mask));
  return entry == index.end() ? NO_ISSUES : entry->second;
}

}  // namespace

VondOutputLog::VondOutputLog(vond::postprocessor::PostprocessorExtensionData& engine_data)
    : PostprocessorExtension(engine_data) {
  data = engine_data;
}

VondOutputLog::~VondOutputLog() = default;

int VondOutputLog::run() {
  NodeSummaries nodes;
  write(vond::util::EngineHelper::format_header());
  write_rule();
  utilities_.print_validation(data);
  if (utilities_.Summarize(data) == 1) {
    return 1;
  }
  if (print_section(false, nodes) == 1) {
    return 1;
  }
  write_rule();
  if (print_section(true, nodes) == 1) {
    return 1;
  }
  write_rule();
  if (utilities_.print_full_tree(data, nodes) == 1) {
    return 1;
  }
  utilities_.PrintEnd(data);
  return 0;
}

int VondOutputLog::PrintSection(bool other) {
  NodeSummaries nodes;
  return print_section(other, nodes);
}

int VondOutputLog::print_section(bool other, NodeSummaries& nodes) {
  // 1. The heading.
  write_wrapped(other ? "Other issues (not contributing to FAIL)\n"
                      : "Issues contributing to FAIL\n");

  // 2. The number of issues; without any, a notice is all, whatever the index holds.
  const unsigned section_bit = other ? 0 : FAIL_BIT;
  int count = 0;
  try {
    count = data.counts_by_mask.at(section_bit | DIAGNOSES) +
            data.counts_by_mask.at(section_bit | ALL_OBSERVATIONS);
  } catch (...) {
    std::cerr << "Error getting number of issues.\n";
    return 1;
  }
  if (count == 0) {
    write_wrapped("No issues detected.\n\n");
    return 0;
  }
  write("\n");

  // 3. The bands, worst first.
  for (const auto& [lower, upper, severity, name] : descending_bands(SEVERITY_BANDS)) {
    print_band(name, static_cast<unsigned>(severity) | section_bit, nodes);
  }
  return 0;
}

void VondOutputLog::print_band(const std::string& name, unsigned mask, NodeSummaries& nodes) {
  const IssueList& diagnoses = find_group(*data.issues_by_mask, mask | DIAGNOSES);
  const IssueList& observations = find_group(*data.issues_by_mask, mask | OBSERVATIONS);
  const IssueList& missing_data = find_group(*data.issues_by_mask, mask | MISSING_DATA);
  if (diagnoses.empty() && observations.empty() && missing_data.empty()) {
    return;
  }
  write_wrapped(vond::str::upper(name) + ":\n");
  print_diagnoses(diagnoses, nodes);
  print_observations(observations, missing_data, nodes);
}

void VondOutputLog::print_diagnoses(const IssueList& diagnoses, NodeSummaries& nodes) {
  if (diagnoses.empty()) {
    return;
  }
  write_wrapped("Diagnoses\n");
  const int width = number_width(diagnoses.size());
  int number = 0;
  for (const auto& issue : diagnoses) {
    ++number;
    if (issue) {
      utilities_.PrintOutput(issue, data, number, width, "", true, nodes);
    }
    // An entry without an issue leaves its blank line behind, unlike one among the observations;
    // that is wanted.
    write("\n");
  }
}

void VondOutputLog::print_observations(const IssueList& observations, const IssueList& missing_data,
                                       NodeSummaries& nodes) {
  if (observations.empty() && missing_data.empty()) {
    return;
  }
  write_wrapped("Observations\n");
  const int width = number_width(observations.size() + missing_data.size());
  int number = 0;
  for (const IssueList* group : {&observations, &missing_data}) {
    for (const auto& issue : *group) {
      ++number;
      if (!issue) {
        continue;
      }
      utilities_.PrintOutput(issue, data, number, width, "", false, nodes);
      write("\n");
    }
  }
}

void VondOutputLog::write_wrapped(const std::string& text) {
  write(vond::str::word_wrap(text, data.line_width, ""));
}

int VondOutputLog::number_width(std::size_t issues) const {
  return utilities_.GetDigits(static_cast<int>(issues));
}

}  // namespace vond_output_log

vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_output_log::VondOutputLog(data);
}
