#include "fwd_output.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "issue_details.h"
#include "statement.h"
#include "vond/log/error_log.h"
#include "vond/log/output_log.h"
#include "vond/postprocessor/utility_functions.h"
#include "vond/str/string_functions.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond_output_log {

using vond::Fwd;
using vond::log::ErrorLog;
using vond::log::OutputLog;
using vond::postprocessor::ALL_OBSERVATIONS;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::DIAGNOSES;
using vond::postprocessor::fail_bit;
using vond::postprocessor::IssueList;
using vond::postprocessor::IssuesByMask;
using vond::postprocessor::MISSING_DATA;
using vond::postprocessor::OBSERVATIONS;
using vond::postprocessor::SeverityMask;
using vond::postprocessor::Type;
using vond::str::rstrip;
using vond::str::space_wrap;
using vond::str::upper;
using vond::str::word_wrap;
using vond::vocabulary::descending_bands;
using vond::vocabulary::SEVERITY_BANDS;

namespace {

constexpr char SOURCE_FILE[] = "src/postprocessor/extensions/vond_output_log/src/fwd_output";
constexpr int ERROR_PRIORITY = 3;

/// The longest label of either kind, which makes the label column one column wider.
constexpr std::string_view DIAGNOSIS_REFERENCE = "Based on Observations:";
constexpr std::string_view OBSERVATION_REFERENCE = "Diagnoses:";

void write_line_end() { write("\n"); }

std::string blanks(std::size_t count) { return std::string(count, ' '); }

// The drawing of the tree. A level is four columns wide:
//
//     root: FAIL              line prefix ""           child prefix "|  "
//     |-- first: PASS         line prefix "|-- "       child prefix "|   |  "
//     |   `-- leaf: PASS      line prefix "|   `-- "   child prefix "|          "
//     `-- last: FAIL          line prefix "`-- "       child prefix "       "
//
// The child prefix begins every further line of a definition. What its children inherit is that
// prefix, with a blank for the last bar when no sibling of the definition follows.
struct TreePrefixes {
  std::string line;
  std::string child;
};

/// Returns the character `count` places before the end.
char& from_end(std::string& text, std::size_t count) { return text[text.size() - count]; }

TreePrefixes draw_prefixes(const std::string& inherited, bool last, bool has_child_groups) {
  const bool root = inherited.size() <= 1;
  TreePrefixes prefixes{inherited + blanks(root ? 0 : 1), inherited + blanks(root ? 3 : 4)};
  auto& [line, child] = prefixes;
  if (line.size() > 2) {
    line.replace(line.size() - 3, 3, "-- ");
  }
  if (line.size() > 3) {
    from_end(line, 4) = last ? '`' : '|';
  }
  if (child.size() >= 7) {
    from_end(child, 7) = last ? ' ' : '|';
  }
  if (has_child_groups) {
    from_end(child, 3) = '|';
  }
  return prefixes;
}

std::string status_word(const Fwd& fwd) {
  if (fwd.skipped) {
    return "SKIPPED";
  }
  return fwd.passed ? "PASS" : "FAIL";
}

int count_under(const Fwd& fwd, unsigned mask) {
  const auto count = fwd.issue_counts.find(SeverityMask(mask));
  return count == fwd.issue_counts.end() ? 0 : count->second;
}

std::string noun(int count, const std::string& singular, const std::string& plural) {
  // 0 takes the singular on purpose.
  return count > 1 ? plural : singular;
}

/// Returns the ids of what an issue is related to, one string, empty if there is none.
std::string related_ids(CollapsedAnalysisOutput& issue, bool is_diagnosis) {
  std::string ids;
  if (is_diagnosis) {
    for (const std::string& id : usable_related_ids(issue, Type::OBSERVATION)) {
      ids.append(id).append(", ");
    }
  } else {
    // As they are and in the order of the set, neither made presentable nor sorted, unlike the
    // observations of a diagnosis; that is wanted.
    for (const auto& diagnosis : issue.related_issues[Type::DIAGNOSIS]) {
      ids.append(diagnosis->get_id()).append(", ");
    }
  }
  return rstrip(std::move(ids), ", ");
}

const IssueList NO_ISSUES;

/// Returns the index entry of one band and type code, NO_ISSUES when there is none. An unknown band
/// adds a row of zeros to the table.
const IssueList& index_entry(const IssuesByMask& index, const std::string& band_name,
                             unsigned char type_code, int fail_threshold) {
  const auto& [lower, upper_bound, severity] = SEVERITY_BANDS[band_name];
  const unsigned mask =
      (static_cast<unsigned>(severity) | fail_bit(upper_bound, fail_threshold)) + type_code;
  const auto entry = index.find(SeverityMask(mask));
  return entry == index.end() ? NO_ISSUES : entry->second;
}

void append(IssueList& issues, const IssueList& more) {
  issues.insert(issues.end(), more.begin(), more.end());
}

/// Returns the index sorted by the definitions that the issues name.
std::unordered_map<std::string_view, IssuesByMask> sort_by_fwd(const IssuesByMask& index) {
  std::unordered_map<std::string_view, IssuesByMask> sorted;
  for (const auto& [mask, issues] : index) {
    for (const auto& issue : issues) {
      if (!issue) {
        continue;
      }
      for (const std::string& name : issue->fwd_names) {
        sorted[name][mask].push_back(issue);
      }
    }
  }
  return sorted;
}

/// Runs a selection. Returns 0, or 1 after a report in the error log when it threw.
template <typename Selection>
int report_selection_errors(Selection select) {
  try {
    select();
  } catch (const std::exception& error) {
    ErrorLog(SOURCE_FILE, "get_details_by_severity", 582, ERROR_PRIORITY).stream() << error.what();
    return 1;
  }
  return 0;
}

std::size_t count_digits(std::size_t number) {
  std::size_t digits = 1;
  for (; number > 9; number /= 10) {
    ++digits;
  }
  return digits;
}

}  // namespace

int FwdOutputFunctions::print_full_tree(const Data& data) {
  NodeSummaries nodes;
  return print_full_tree(data, nodes);
}

int FwdOutputFunctions::print_full_tree(const Data& data, NodeSummaries& nodes) {
  write(word_wrap("Issues (repeated from above) ordered in the framework definition hierarchy",
                  data.line_width, ""));
  write_line_end();
  write_line_end();

  if (!data.fwd_root) {
    return 0;
  }
  const auto& roots = data.fwd_root->roots;
  Walk walk{data, nodes};
  for (const auto& root : roots) {
    if (print_subtree(walk, *root->fwd, "", true) == 1) {
      return 1;
    }
    if (roots.size() != 1) {
      write_line_end();
    }
  }
  return 0;
}

int FwdOutputFunctions::print_tree(const Data& data, const Fwd& fwd, const std::string& prefix,
                                   bool last) {
  NodeSummaries nodes;
  Walk walk{data, nodes};
  return print_subtree(walk, fwd, prefix, last);
}

int FwdOutputFunctions::print_subtree(Walk& walk, const Fwd& fwd, const std::string& prefix,
                                      bool last) {
  const Data& data = walk.data;
  const auto& child_groups = fwd.node->child_groups;
  const auto [line_prefix, child_prefix] = draw_prefixes(prefix, last, !child_groups.empty());

  write(word_wrap(line_prefix + get_short_name(fwd.name) + ": " + status_word(fwd), data.line_width,
                  child_prefix));
  write_line_end();

  if (!fwd.skipped) {
    std::string scratch;
    const std::string gap = blanks(5);
    if (print_issue_num(data, scratch, data.line_width, child_prefix, gap, fwd) == 1) {
      return 1;
    }
    const auto select = [&](IssueList& diagnoses, IssueList& observations,
                            const std::string& band_name) {
      return select_details(walk, diagnoses, observations, band_name, fwd);
    };
    if (print_bands(select, walk.nodes, child_prefix, data.line_width, scratch) == 1) {
      return 1;
    }
  }

  std::size_t remaining = 0;
  for (const auto& group : child_groups) {
    remaining += group.children.size();
  }
  std::string inherited = child_prefix;
  if (last) {
    from_end(inherited, 3) = ' ';
  }
  for (const auto& group : child_groups) {
    for (const auto& child : group.children) {
      --remaining;
      if (print_subtree(walk, *child->fwd, inherited, remaining == 0) == 1) {
        return 1;
      }
    }
  }
  return 0;
}

int FwdOutputFunctions::print_issue_num(const Data& data, std::string& text, int width,
                                        const std::string& child_prefix, const std::string& gap,
                                        const Fwd& fwd) {
  if (fwd.issue_counts.empty()) {
    return 0;
  }

  std::string count_text;
  for (const auto& [lower, upper_bound, severity, name] : descending_bands(SEVERITY_BANDS)) {
    const unsigned mask =
        static_cast<unsigned>(severity) | fail_bit(upper_bound, data.fail_threshold);
    text = upper(name);
    const int observations = count_under(fwd, mask | ALL_OBSERVATIONS);
    const int diagnoses = count_under(fwd, mask);
    if (format_issue_num_by_severity(count_text, text, width, child_prefix, gap, diagnoses,
                                     observations) == 1) {
      return 1;
    }
  }

  text = space_wrap(count_text, std::max(0, width - static_cast<int>(child_prefix.size())), "");
  write(word_wrap(text, width, child_prefix));
  write_line_end();
  write(child_prefix);
  write_line_end();
  return 0;
}

int FwdOutputFunctions::format_issue_num_by_severity(std::string& count_text, std::string& text,
                                                     int /*width*/, const std::string& child_prefix,
                                                     const std::string& gap, int diagnoses,
                                                     int observations) {
  if (diagnoses + observations <= 0) {
    return 0;
  }
  if (format_fwd_issue_num(text, child_prefix, gap, diagnoses, observations) == 1) {
    return 1;
  }
  count_text += text;
  return 0;
}

int FwdOutputFunctions::format_fwd_issue_num(std::string& text, const std::string& child_prefix,
                                             const std::string& gap, int diagnoses,
                                             int observations) {
  try {
    text = child_prefix + std::to_string(diagnoses + observations) + " " + text + gap + "(" +
           std::to_string(diagnoses) + noun(diagnoses, " diagnosis", " diagnoses") + gap +
           std::to_string(observations) + noun(observations, " observation)", " observations)") +
           "\n";
  } catch (const std::exception& error) {
    ErrorLog(SOURCE_FILE, "format_fwd_issue_num", 374, ERROR_PRIORITY).stream() << error.what();
    return 1;
  }
  return 0;
}

int FwdOutputFunctions::print_details(const Data& data, const Fwd& fwd,
                                      const std::string& child_prefix, int width,
                                      std::string& text) {
  const auto select = [&](IssueList& diagnoses, IssueList& observations,
                          const std::string& band_name) {
    return get_details_by_severity(data, diagnoses, observations, band_name, fwd);
  };
  NodeSummaries nodes;
  return print_bands(select, nodes, child_prefix, width, text);
}

int FwdOutputFunctions::print_bands(const BandSelection& select, NodeSummaries& nodes,
                                    const std::string& child_prefix, int width, std::string& text) {
  const auto bands = descending_bands(SEVERITY_BANDS);
  IssueList diagnoses;
  IssueList observations;
  for (const auto& [lower, upper_bound, severity, name] : bands) {
    if (select(diagnoses, observations, name) == 1) {
      return 1;
    }
    if (print_details_by_severity(diagnoses, observations, nodes, child_prefix, width, name,
                                  text) == 1) {
      return 1;
    }
    // The last band has its spacer too; that is wanted.
    if (bands.size() > 1 && !(diagnoses.empty() && observations.empty())) {
      write(child_prefix);
      write_line_end();
    }
  }
  return 0;
}

int FwdOutputFunctions::get_details_by_severity(const Data& data, IssueList& diagnoses,
                                                IssueList& observations,
                                                const std::string& band_name, const Fwd& fwd) {
  return report_selection_errors([&] {
    diagnoses.clear();
    observations.clear();
    find_by_severity_and_fwd(data, diagnoses, band_name, fwd, DIAGNOSES);
    find_by_severity_and_fwd(data, observations, band_name, fwd, OBSERVATIONS);
    IssueList missing_data;
    find_by_severity_and_fwd(data, missing_data, band_name, fwd, MISSING_DATA);
    append(observations, missing_data);
  });
}

void FwdOutputFunctions::find_issues(Walk& walk, const Fwd& fwd) {
  auto& issues_by_fwd = walk.issues_by_fwd;
  if (!issues_by_fwd) {
    issues_by_fwd = sort_by_fwd(*walk.data.issues_by_mask);
  }
  const auto found = issues_by_fwd->find(fwd.name);
  walk.issues_of_last_fwd = found == issues_by_fwd->end() ? nullptr : &found->second;
  walk.last_fwd = &fwd;
}

int FwdOutputFunctions::select_details(Walk& walk, IssueList& diagnoses, IssueList& observations,
                                       const std::string& band_name, const Fwd& fwd) {
  return report_selection_errors([&] {
    diagnoses.clear();
    observations.clear();
    if (!walk.data.issues_by_mask) {
      return;
    }
    if (walk.last_fwd != &fwd) {
      find_issues(walk, fwd);
    }
    if (walk.issues_of_last_fwd == nullptr) {
      return;
    }
    const IssuesByMask& issues = *walk.issues_of_last_fwd;
    const int threshold = walk.data.fail_threshold;
    append(diagnoses, index_entry(issues, band_name, DIAGNOSES, threshold));
    append(observations, index_entry(issues, band_name, OBSERVATIONS, threshold));
    append(observations, index_entry(issues, band_name, MISSING_DATA, threshold));
  });
}

void FwdOutputFunctions::find_by_severity_and_fwd(const Data& data, IssueList& issues,
                                                  const std::string& band_name, const Fwd& fwd,
                                                  const unsigned char& type_code) {
  find_by_severity(data, issues, band_name, type_code);
  find_by_fwd(issues, fwd);
}

void FwdOutputFunctions::find_by_severity(const Data& data, IssueList& issues,
                                          const std::string& band_name,
                                          const unsigned char& type_code) {
  if (!data.issues_by_mask) {
    return;
  }
  const IssueList& entry =
      index_entry(*data.issues_by_mask, band_name, type_code, data.fail_threshold);
  if (&entry != &NO_ISSUES) {
    issues = entry;
  }
}

void FwdOutputFunctions::find_by_fwd(IssueList& issues, const Fwd& fwd) {
  const IssueList candidates = std::exchange(issues, {});
  for (const auto& issue : candidates) {
    if (issue && issue->fwd_names.contains(fwd.name)) {
      issues.push_back(issue);
    }
  }
}

int FwdOutputFunctions::print_details_by_severity(const IssueList& diagnoses,
                                                  const IssueList& observations,
                                                  const std::string& prefix, const int& width,
                                                  const std::string& band_name,
                                                  std::string& buffer) {
  NodeSummaries nodes;
  return print_details_by_severity(diagnoses, observations, nodes, prefix, width, band_name,
                                   buffer);
}

int FwdOutputFunctions::print_details_by_severity(const IssueList& diagnoses,
                                                  const IssueList& observations,
                                                  NodeSummaries& nodes, const std::string& prefix,
                                                  int width, const std::string& band_name,
                                                  std::string& buffer) {
  if (diagnoses.empty() && observations.empty()) {
    return 0;
  }
  {
    OutputLog statement;
    statement << word_wrap(prefix + upper(band_name) + ":", width, prefix);
  }
  {
    OutputLog statement;
    statement << "\n";
  }
  if (!diagnoses.empty() && print_fwd_body(buffer, width, prefix, diagnoses, nodes, true) == 1) {
    return 1;
  }
  if (!observations.empty() &&
      print_fwd_body(buffer, width, prefix, observations, nodes, false) == 1) {
    return 1;
  }
  return 0;
}

int FwdOutputFunctions::print_fwd_body(std::string& buffer, const int& width,
                                       const std::string& prefix, const IssueList& issues,
                                       bool is_diagnosis) {
  NodeSummaries nodes;
  return print_fwd_body(buffer, width, prefix, issues, nodes, is_diagnosis);
}

int FwdOutputFunctions::print_fwd_body(std::string& buffer, int width, const std::string& prefix,
                                       const IssueList& issues, NodeSummaries& nodes,
                                       bool is_diagnosis) {
  write(word_wrap(prefix + (is_diagnosis ? "Diagnoses" : "Observations"), width, prefix));
  write_line_end();

  const std::size_t digits = count_digits(issues.size());
  const std::string body_indent = prefix + blanks(3 + digits - 1);
  std::string spacer;
  int ordinal = 0;
  for (const auto& issue : issues) {
    ++ordinal;
    const std::string ordinal_pad =
        blanks(digits - count_digits(static_cast<std::size_t>(ordinal)));
    if (format_fwd_header(buffer, ordinal, prefix, ordinal_pad, issue, nodes) == 1) {
      return 1;
    }
    // Ids of ordinals with one digit less than the longest, or in a list of up to nine, do not
    // stand in the column where their continuation begins; that is wanted.
    write(word_wrap(buffer, width, prefix + blanks(4) + ordinal_pad));
    write_line_end();

    format_fwd_spacer(spacer, is_diagnosis);
    if (format_fwd_body(buffer, body_indent, spacer, width, issue, nodes, is_diagnosis) == 1) {
      return 1;
    }
    write(buffer);
    write_line_end();
  }
  return 0;
}

int FwdOutputFunctions::format_fwd_header(std::string& buffer, const int& ordinal,
                                          const std::string& prefix, const std::string& ordinal_pad,
                                          const Issue& issue) {
  NodeSummaries nodes;
  return format_fwd_header(buffer, ordinal, prefix, ordinal_pad, issue, nodes);
}

int FwdOutputFunctions::format_fwd_header(std::string& buffer, int ordinal,
                                          const std::string& prefix, const std::string& ordinal_pad,
                                          const Issue& issue, NodeSummaries& nodes) {
  try {
    const std::size_t count = nodes.count(*issue);
    // "0 node)" is wanted.
    buffer = prefix + std::to_string(ordinal) + "." + ordinal_pad + " " + issue->get_id() +
             " (appears on " + std::to_string(count) + (count > 1 ? " nodes)" : " node)");
  } catch (const std::exception& error) {
    ErrorLog(SOURCE_FILE, "format_fwd_header", 441, ERROR_PRIORITY).stream() << error.what();
    return 1;
  }
  return 0;
}

void FwdOutputFunctions::format_fwd_spacer(std::string& spacer, bool is_diagnosis) {
  spacer = blanks((is_diagnosis ? DIAGNOSIS_REFERENCE : OBSERVATION_REFERENCE).size() + 1);
}

int FwdOutputFunctions::format_fwd_body(std::string& buffer, const std::string& body_indent,
                                        const std::string& spacer, const int& width,
                                        const Issue& issue, bool is_diagnosis) {
  NodeSummaries nodes;
  return format_fwd_body(buffer, body_indent, spacer, width, issue, nodes, is_diagnosis);
}

int FwdOutputFunctions::format_fwd_body(std::string& buffer, const std::string& body_indent,
                                        const std::string& spacer, int width, const Issue& issue,
                                        NodeSummaries& nodes, bool is_diagnosis) {
  const auto append_segment = [&](std::string_view label, const std::string& text) {
    std::string segment;
    if (format_fwd_segment(segment, body_indent, spacer, std::string(label), text, width) == 1) {
      return false;
    }
    buffer += "\n" + segment;
    return true;
  };
  const bool has_outputs = !issue->outputs.empty();

  const std::string message = remove_endl(has_outputs ? issue->outputs[0]->message : "");
  std::string segment;
  if (!message.empty() &&
      format_fwd_segment(segment, body_indent, spacer, "Message:", message, width) == 1) {
    return 1;
  }
  // Without a message the body begins with an empty line, or is empty; that is wanted.
  buffer = segment;

  const std::string remedy = remove_endl(has_outputs ? issue->outputs[0]->remedy : "");
  if (!remedy.empty() && !append_segment("Remedy:", remedy)) {
    return 1;
  }

  if (has_outputs && !append_segment("Nodes:", nodes.text(*issue, *this))) {
    return 1;
  }

  if (!issue->related_issues[is_diagnosis ? Type::OBSERVATION : Type::DIAGNOSIS].empty() &&
      !append_segment(is_diagnosis ? DIAGNOSIS_REFERENCE : OBSERVATION_REFERENCE,
                      related_ids(*issue, is_diagnosis))) {
    return 1;
  }
  return 0;
}

int FwdOutputFunctions::format_fwd_segment(std::string& segment, const std::string& body_indent,
                                           const std::string& spacer, const std::string& label,
                                           const std::string& text, const int& width) {
  try {
    segment.clear();
    if (spacer.size() <= label.size()) {
      return 1;
    }
    segment = word_wrap(body_indent + label + blanks(spacer.size() - label.size()) + text, width,
                        body_indent + spacer);
  } catch (const std::exception& error) {
    ErrorLog(SOURCE_FILE, "format_fwd_segment", 555, ERROR_PRIORITY).stream() << error.what();
    return 1;
  }
  return 0;
}

}  // namespace vond_output_log
