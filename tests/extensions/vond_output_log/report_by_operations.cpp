#include "tests/extensions/vond_output_log/report_by_operations.h"

#include <algorithm>
#include <iostream>

#include "vond/log/output_log.h"
#include "vond/str/string_functions.h"
#include "vond/util/engine_helper.h"
#include "vond_output_log.h"

namespace vond::test {

using log::OutputLog;
using postprocessor::SeverityMask;
using str::space_wrap;
using str::upper;
using str::word_wrap;
using vocabulary::descending_bands;

namespace {

const std::string GAP(5, ' ');

void write(const std::string& text) { OutputLog(OutputLog::NONE) << text; }

unsigned mask_of(const vocabulary::SeverityBand& band, int fail_threshold) {
  const auto& [lower, upper_bound, severity, name] = band;
  return static_cast<unsigned>(severity) + (upper_bound >= fail_threshold ? 16U : 0U);
}

int count_under(const Fwd& fwd, unsigned mask) {
  const auto found = fwd.issue_counts.find(SeverityMask(mask));
  return found == fwd.issue_counts.end() ? 0 : found->second;
}

/// Sets the character that many places before the end.
void set_from_end(std::string& text, std::size_t place, char character) {
  text[text.size() - place] = character;
}

std::string line_prefix(const std::string& inherited, bool last) {
  std::string line = inherited + (inherited.size() > 1 ? " " : "");
  if (line.size() > 2) {
    set_from_end(line, 3, '-');
    set_from_end(line, 2, '-');
    set_from_end(line, 1, ' ');
  }
  if (line.size() > 3) {
    set_from_end(line, 4, last ? '`' : '|');
  }
  return line;
}

std::string child_prefix_of(const Fwd& fwd, const std::string& inherited, bool last) {
  std::string child = inherited + (inherited.size() > 1 ? "    " : "   ");
  if (child.size() >= 7) {
    set_from_end(child, 7, last ? ' ' : '|');
  }
  if (!fwd.node->child_groups.empty()) {
    set_from_end(child, 3, '|');
  }
  return child;
}

}  // namespace

int ReportByOperations::run() {
  write(util::EngineHelper::format_header());
  write(std::string(80, '-') + "\n");
  utilities_.print_validation(data_);
  if (utilities_.Summarize(data_) == 1 || print_section(false) == 1) {
    return 1;
  }
  write(std::string(80, '-') + "\n");
  if (print_section(true) == 1) {
    return 1;
  }
  write(std::string(80, '-') + "\n");
  if (print_full_tree() == 1) {
    return 1;
  }
  utilities_.PrintEnd(data_);
  return 0;
}

int ReportByOperations::print_section(bool other) {
  if (call_it_()) {
    return vond_output_log::VondOutputLog(data_).PrintSection(other);
  }
  write_wrapped(other ? "Other issues (not contributing to FAIL)\n"
                      : "Issues contributing to FAIL\n");
  const unsigned section = other ? 0 : 16;
  const auto diagnoses = data_.counts_by_mask.find(SeverityMask(section));
  const auto observations = data_.counts_by_mask.find(SeverityMask(section + 3));
  if (diagnoses == data_.counts_by_mask.end() || observations == data_.counts_by_mask.end()) {
    std::cerr << "Error getting number of issues.\n";
    return 1;
  }
  const int count = diagnoses->second + observations->second;
  if (count != 0) {
    write("\n");
  }
  write_wrapped(count == 0 ? "No issues detected.\n\n" : "");
  if (count == 0) {
    return 0;
  }
  for (const auto& [lower, upper_bound, severity, name] : descending_bands(bands_.sections)) {
    print_band(name, static_cast<unsigned>(severity) | section);
  }
  return 0;
}

void ReportByOperations::print_band(const std::string& name, unsigned mask) {
  const Issues diagnoses = entry(mask);
  Issues observations = entry(mask + 1);
  const Issues missing_data = entry(mask + 2);
  observations.insert(observations.end(), missing_data.begin(), missing_data.end());
  if (diagnoses.empty() && observations.empty()) {
    return;
  }
  write_wrapped(upper(name) + ":\n");
  for (const bool is_diagnosis : {true, false}) {
    const Issues& issues = is_diagnosis ? diagnoses : observations;
    if (issues.empty()) {
      continue;
    }
    write_wrapped(is_diagnosis ? "Diagnoses\n" : "Observations\n");
    const int width = utilities_.GetDigits(static_cast<int>(issues.size()));
    for (std::size_t place = 0; place < issues.size(); ++place) {
      const Issue& issue = issues[place];
      if (issue) {
        printing_.PrintOutput(issue, data_, static_cast<int>(place) + 1, width, "", is_diagnosis);
      }
      if (issue || is_diagnosis) {
        write("\n");
      }
    }
  }
}

ReportByOperations::Issues ReportByOperations::entry(unsigned mask) const {
  const auto found = data_.issues_by_mask->find(SeverityMask(mask));
  return found == data_.issues_by_mask->end() ? Issues() : found->second;
}

void ReportByOperations::write_wrapped(const std::string& text) {
  write(word_wrap(text, data_.line_width, ""));
}

int ReportByOperations::print_full_tree() {
  if (call_it_()) {
    return tree_.print_full_tree(data_);
  }
  write(word_wrap("Issues (repeated from above) ordered in the framework definition hierarchy",
                  data_.line_width, ""));
  write("\n");
  write("\n");
  const auto& roots = data_.fwd_root->roots;
  for (const Node& root : roots) {
    if (print_tree(*root->fwd, "", true) == 1) {
      return 1;
    }
    if (roots.size() != 1) {
      write("\n");
    }
  }
  return 0;
}

int ReportByOperations::print_tree(const Fwd& fwd, const std::string& inherited, bool last) {
  if (call_it_()) {
    return tree_.print_tree(data_, fwd, inherited, last);
  }
  const std::string child_prefix = child_prefix_of(fwd, inherited, last);
  const std::string status = fwd.skipped ? "SKIPPED" : fwd.passed ? "PASS" : "FAIL";
  write(word_wrap(line_prefix(inherited, last) + tree_.get_short_name(fwd.name) + ": " + status,
                  data_.line_width, child_prefix));
  write("\n");
  if (!fwd.skipped && print_blocks(fwd, child_prefix) == 1) {
    return 1;
  }
  std::string inherited_by_children = child_prefix;
  if (last) {
    set_from_end(inherited_by_children, 3, ' ');
  }
  return print_children(fwd, inherited_by_children);
}

int ReportByOperations::print_blocks(const Fwd& fwd, const std::string& child_prefix) {
  std::string scratch;
  if (print_issue_num(scratch, child_prefix, fwd) == 1) {
    return 1;
  }
  return print_details(fwd, child_prefix, scratch);
}

int ReportByOperations::print_children(const Fwd& fwd, const std::string& inherited) {
  std::vector<Node> children;
  for (const FwdChildGroup& group : fwd.node->child_groups) {
    children.insert(children.end(), group.children.begin(), group.children.end());
  }
  for (std::size_t number = 1; number <= children.size(); ++number) {
    if (print_tree(*children[number - 1]->fwd, inherited, number == children.size()) == 1) {
      return 1;
    }
  }
  return 0;
}

int ReportByOperations::print_issue_num(std::string& text, const std::string& child_prefix,
                                        const Fwd& fwd) {
  const int width = data_.line_width;
  if (call_it_()) {
    return tree_.print_issue_num(data_, text, width, child_prefix, GAP, fwd);
  }
  if (fwd.issue_counts.empty()) {
    return 0;
  }
  std::string count_text;
  for (const auto& band : descending_bands(bands_.tree)) {
    const unsigned mask = mask_of(band, data_.fail_threshold);
    text = upper(std::get<3>(band));
    if (format_issue_num_by_severity(count_text, text, child_prefix, count_under(fwd, mask),
                                     count_under(fwd, mask | 3U)) == 1) {
      return 1;
    }
  }
  text = space_wrap(count_text, std::max(0, width - static_cast<int>(child_prefix.size())), "");
  write(word_wrap(text, width, child_prefix));
  write("\n");
  write(child_prefix);
  write("\n");
  return 0;
}

int ReportByOperations::format_issue_num_by_severity(std::string& count_text, std::string& text,
                                                     const std::string& child_prefix, int diagnoses,
                                                     int observations) {
  if (call_it_()) {
    return tree_.format_issue_num_by_severity(count_text, text, data_.line_width, child_prefix, GAP,
                                              diagnoses, observations);
  }
  if (diagnoses + observations <= 0) {
    return 0;
  }
  if (tree_.format_fwd_issue_num(text, child_prefix, GAP, diagnoses, observations) == 1) {
    return 1;
  }
  count_text += text;
  return 0;
}

int ReportByOperations::print_details(const Fwd& fwd, const std::string& child_prefix,
                                      std::string& text) {
  if (call_it_()) {
    return tree_.print_details(data_, fwd, child_prefix, data_.line_width, text);
  }
  const auto bands = descending_bands(bands_.tree);
  Issues diagnoses;
  Issues observations;
  for (const auto& [lower, upper_bound, severity, name] : bands) {
    if (get_details_by_severity(diagnoses, observations, name, fwd) == 1 ||
        print_details_by_severity(diagnoses, observations, child_prefix, name, text) == 1) {
      return 1;
    }
    if (bands.size() > 1 && !(diagnoses.empty() && observations.empty())) {
      write(child_prefix);
      write("\n");
    }
  }
  return 0;
}

int ReportByOperations::get_details_by_severity(Issues& diagnoses, Issues& observations,
                                                const std::string& band, const Fwd& fwd) {
  if (call_it_()) {
    return tree_.get_details_by_severity(data_, diagnoses, observations, band, fwd);
  }
  diagnoses.clear();
  observations.clear();
  find_by_severity_and_fwd(diagnoses, band, fwd, 0);
  find_by_severity_and_fwd(observations, band, fwd, 1);
  Issues missing_data;
  find_by_severity_and_fwd(missing_data, band, fwd, 2);
  observations.insert(observations.end(), missing_data.begin(), missing_data.end());
  return 0;
}

void ReportByOperations::find_by_severity_and_fwd(Issues& issues, const std::string& band,
                                                  const Fwd& fwd, unsigned char type_code) {
  if (call_it_()) {
    tree_.find_by_severity_and_fwd(data_, issues, band, fwd, type_code);
    return;
  }
  tree_.find_by_severity(data_, issues, band, type_code);
  tree_.find_by_fwd(issues, fwd);
}

int ReportByOperations::print_details_by_severity(const Issues& diagnoses,
                                                  const Issues& observations,
                                                  const std::string& prefix,
                                                  const std::string& band, std::string& buffer) {
  const int width = data_.line_width;
  if (call_it_()) {
    return tree_.print_details_by_severity(diagnoses, observations, prefix, width, band, buffer);
  }
  if (diagnoses.empty() && observations.empty()) {
    return 0;
  }
  OutputLog() << word_wrap(prefix + upper(band) + ":", width, prefix);
  OutputLog() << "\n";
  if (!diagnoses.empty() && print_fwd_body(buffer, prefix, diagnoses, true) == 1) {
    return 1;
  }
  return observations.empty() ? 0 : print_fwd_body(buffer, prefix, observations, false);
}

int ReportByOperations::print_fwd_body(std::string& buffer, const std::string& prefix,
                                       const Issues& issues, bool is_diagnosis) {
  const int width = data_.line_width;
  if (call_it_()) {
    return tree_.print_fwd_body(buffer, width, prefix, issues, is_diagnosis);
  }
  write(word_wrap(prefix + (is_diagnosis ? "Diagnoses" : "Observations"), width, prefix));
  write("\n");
  const std::size_t digits = std::to_string(issues.size()).size();
  for (std::size_t place = 0; place < issues.size(); ++place) {
    const int ordinal = static_cast<int>(place) + 1;
    const std::string pad(digits - std::to_string(ordinal).size(), ' ');
    if (tree_.format_fwd_header(buffer, ordinal, prefix, pad, issues[place]) == 1) {
      return 1;
    }
    write(word_wrap(buffer, width, prefix + "    " + pad));
    write("\n");
    std::string spacer;
    tree_.format_fwd_spacer(spacer, is_diagnosis);
    const std::string body_indent = prefix + "   " + std::string(digits - 1, ' ');
    if (tree_.format_fwd_body(buffer, body_indent, spacer, width, issues[place], is_diagnosis) ==
        1) {
      return 1;
    }
    write(buffer);
    write("\n");
  }
  return 0;
}

}  // namespace vond::test
