#include "standalone/libvond_host/summary_block.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "standalone/libvond_host/verdict.h"
#include "standalone/text/ascii.h"
#include "standalone/text/messages.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond::standalone {
namespace {

using namespace postprocessor;
using log::OutputLog;

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

/// Returns how many issues of each type stand under the mask, "" when there is none.
std::string issue_counts(const PostprocessorExtensionData& data, unsigned mask) {
  std::string counts;
  append_count(counts, count_issues(data, mask | DIAGNOSES), "diagnosis", "diagnoses");
  append_count(counts, count_issues(data, mask | OBSERVATIONS), "observation", "observations");
  append_count(counts, count_issues(data, mask | MISSING_DATA), "check without data",
               "checks without data");
  return counts;
}

void add_band(const vocabulary::SeverityBand& band, const PostprocessorExtensionData& data,
              ReportBlock& block) {
  const auto& [lower, upper_bound, severity, name] = band;
  const unsigned mask =
      static_cast<unsigned>(severity) | fail_bit(upper_bound, data.fail_threshold);
  const std::string counts = issue_counts(data, mask);
  const bool fails = !counts.empty() && (mask & FAIL_BIT) != 0;
  constexpr std::size_t COUNTS_COLUMN = 17;
  std::string line = "  " + upper_ascii(name) + ":";
  line.resize(COUNTS_COLUMN, ' ');
  block.add_line(fails ? OutputLog::RED : OutputLog::NONE,
                 line + (counts.empty() ? "none" : counts), std::string(COUNTS_COLUMN, ' '));
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

}  // namespace

ReportBlock summary_block(const ReportFacts& facts, const PostprocessorExtensionData& data) {
  ReportBlock block(data.line_width);
  block.add("Summary\n");
  add_verdict("  Verdict: ", facts, data, block);
  if (facts.examination) {
    block.add_line(OutputLog::NONE,
                   "  " + count_of(facts.examination->nodes_examined, "node", "nodes") +
                       " examined, " + std::to_string(facts.nodes_seen) + " with issues");
  }
  for (const auto& band : vocabulary::descending_bands(vocabulary::SEVERITY_BANDS)) {
    add_band(band, data, block);
  }
  const auto failing = failing_definitions(data);
  block.add_line(failing.empty() ? OutputLog::NONE : OutputLog::RED,
                 "  Failing definitions: " + (failing.empty() ? "none" : join(failing)));
  block.add_rule();
  return block;
}

}  // namespace vond::standalone
