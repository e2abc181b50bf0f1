#include "vond/postprocessor/utility_functions.h"

#include <cstddef>
#include <vector>

#include "standalone/libvond_host/report_facts.h"
#include "standalone/nodes/node_folding.h"
#include "vond/log/output_log.h"
#include "vond/str/string_functions.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::postprocessor {
namespace {

using log::OutputLog;
using standalone::report_facts;
using standalone::ReportFacts;

constexpr char RULE[] =
    "--------------------------------------------------------------------------------\n";

void write(const std::string& text) { OutputLog(OutputLog::NONE) << text; }

/// Writes one line of a block, wrapped and in a colour; the line end is outside of the colour.
void write_line(OutputLog::Colors color, const std::string& text, int width,
                const std::string& indent = "    ") {
  OutputLog(color) << str::word_wrap(text, width, indent);
  write("\n");
}

std::string join(const std::vector<std::string>& items) {
  std::string joined;
  for (const std::string& item : items) {
    joined += (joined.empty() ? "" : ", ") + item;
  }
  return joined;
}

std::string count_of(std::size_t count, const std::string& singular, const std::string& plural) {
  return std::to_string(count) + " " + (count == 1 ? singular : plural);
}

int count_under(const PostprocessorExtensionData& data, unsigned mask) {
  const auto count = data.counts_by_mask.find(SeverityMask(mask));
  return count == data.counts_by_mask.end() ? 0 : count->second;
}

bool has_failed(const PostprocessorExtensionData& data) {
  return count_under(data, FAIL_BIT | DIAGNOSES) + count_under(data, FAIL_BIT | ALL_OBSERVATIONS) >
         0;
}

/// Writes PASS or FAIL, and what a reader of that word alone would miss.
void write_verdict(const std::string& lead, const PostprocessorExtensionData& data) {
  const bool failed = has_failed(data);
  std::string doubt;
  const std::size_t unexamined = report_facts().expected_and_not_examined.size();
  const std::size_t rejected = report_facts().lines_rejected;
  if (unexamined != 0) {
    doubt += ", and " + count_of(unexamined, "expected node was", "expected nodes were") +
             " not examined";
  }
  if (rejected != 0) {
    doubt += ", and " + count_of(rejected, "line of input is", "lines of input are") + " left out";
  }
  const OutputLog::Colors passed_color = doubt.empty() ? OutputLog::GREEN : OutputLog::YELLOW;
  write_line(failed ? OutputLog::RED : passed_color, lead + (failed ? "FAIL" : "PASS") + doubt,
             data.line_width);
}

std::size_t count_issues(const PostprocessorExtensionData& data, unsigned mask) {
  if (!data.issues_by_mask) {
    return 0;
  }
  const auto issues = data.issues_by_mask->find(SeverityMask(mask));
  return issues == data.issues_by_mask->end() ? 0 : issues->second.size();
}

void append_count(std::string& text, std::size_t count, const std::string& singular,
                  const std::string& plural) {
  if (count == 0) {
    return;
  }
  text += (text.empty() ? "" : ", ") + count_of(count, singular, plural);
}

void write_band(const vocabulary::SeverityBand& band, const PostprocessorExtensionData& data) {
  const auto& [lower, upper_bound, severity, name] = band;
  const unsigned mask =
      static_cast<unsigned>(severity) | fail_bit(upper_bound, data.fail_threshold);
  std::string counts;
  append_count(counts, count_issues(data, mask | DIAGNOSES), "diagnosis", "diagnoses");
  append_count(counts, count_issues(data, mask | OBSERVATIONS), "observation", "observations");
  append_count(counts, count_issues(data, mask | MISSING_DATA), "check without data",
               "checks without data");
  const bool fails = !counts.empty() && (mask & FAIL_BIT) != 0;
  constexpr std::size_t COUNTS_COLUMN = 17;
  std::string line = "  " + str::upper(name) + ":";
  line.resize(COUNTS_COLUMN, ' ');
  write_line(fails ? OutputLog::RED : OutputLog::NONE, line + (counts.empty() ? "none" : counts),
             data.line_width, std::string(COUNTS_COLUMN, ' '));
}

void collect_failing(const FwdNode& node, std::vector<std::string>& names) {
  if (!node.fwd->skipped && !node.fwd->passed) {
    names.push_back(node.fwd->name);
  }
  for (const FwdChildGroup& group : node.child_groups) {
    for (const auto& child : group.children) {
      collect_failing(*child, names);
    }
  }
}

std::vector<std::string> failing_definitions(const PostprocessorExtensionData& data) {
  std::vector<std::string> names;
  if (!data.fwd_root) {
    return names;
  }
  for (const auto& root : data.fwd_root->roots) {
    collect_failing(*root, names);
  }
  return names;
}

/// What a reader must know before trusting the report, a line each.
std::vector<std::string> doubts(const ReportFacts& facts) {
  std::vector<std::string> lines;
  if (facts.lines_rejected != 0) {
    lines.push_back("Lines of input that cannot be used and are left out: " +
                    std::to_string(facts.lines_rejected));
  }
  if (!facts.unknown_definitions.empty()) {
    lines.push_back("Definitions that findings name and the definitions file lacks: " +
                    join(facts.unknown_definitions));
  }
  if (!facts.unknown_based_on.empty()) {
    lines.push_back("Observations that findings are based on and nobody reported: " +
                    join(facts.unknown_based_on));
  }
  if (facts.examination && !facts.examination->not_examined_with_findings.empty()) {
    lines.push_back("Nodes that have findings and were not examined: " +
                    standalone::fold_node_names({facts.examination->not_examined_with_findings}));
  }
  if (!facts.expected_and_not_examined.empty()) {
    lines.push_back("Nodes that were expected and not examined: " +
                    standalone::fold_node_names({facts.expected_and_not_examined}));
  }
  return lines;
}

}  // namespace

void UtilityFunctions::print_validation(const PostprocessorExtensionData& data) {
  const ReportFacts& facts = report_facts();
  write("Validation\n");
  write_line(OutputLog::NONE, "  Findings read: " + std::to_string(facts.findings_read),
             data.line_width);
  write_line(OutputLog::NONE, "  Nodes seen: " + std::to_string(facts.nodes_seen), data.line_width);
  for (const std::string& doubt : doubts(facts)) {
    write_line(OutputLog::YELLOW, "  " + doubt, data.line_width);
  }
  write("\n");
}

int UtilityFunctions::Summarize(const PostprocessorExtensionData& data) {
  write("Summary\n");
  write_verdict("  Verdict: ", data);
  const ReportFacts& facts = report_facts();
  if (facts.examination) {
    write_line(OutputLog::NONE,
               "  " + count_of(facts.examination->nodes_examined, "node", "nodes") + " examined, " +
                   std::to_string(facts.nodes_seen) + " with issues",
               data.line_width);
  }
  for (const auto& band : vocabulary::descending_bands(vocabulary::SEVERITY_BANDS)) {
    write_band(band, data);
  }
  const auto failing = failing_definitions(data);
  write_line(failing.empty() ? OutputLog::NONE : OutputLog::RED,
             "  Failing definitions: " + (failing.empty() ? "none" : join(failing)),
             data.line_width);
  write(RULE);
  return 0;
}

int UtilityFunctions::PrintEnd(const PostprocessorExtensionData& data) {
  write(RULE);
  write_verdict("End of report. Verdict: ", data);
  return 0;
}

int UtilityFunctions::GetDigits(int count) const {
  int digits = 1;
  for (; count > 9; count /= 10) {
    ++digits;
  }
  return digits;
}

std::string UtilityFunctions::get_usable_id(const std::string& id) {
  constexpr char BLANKS[] = " ";
  const std::string_view name = std::string_view(id).substr(0, id.find('#'));
  const std::size_t start = name.find_first_not_of(BLANKS);
  if (start == std::string_view::npos) {
    return id;
  }
  return std::string(name.substr(start, name.find_last_not_of(BLANKS) + 1 - start));
}

}  // namespace vond::postprocessor
