#include "standalone/libvond_host/blocks/verdict_lines.h"

#include <algorithm>

#include "standalone/facts/counts.h"
#include "standalone/facts/verdict.h"
#include "standalone/libvond_host/blocks/block_writing.h"
#include "standalone/libvond_host/blocks/limited_text.h"

namespace vond::standalone {
namespace {

using log::OutputLog;

bool is_failing(const SeverityBand& band) { return band.contributes_to_fail && !band.is_empty(); }

/// Returns "13 nodes with CRITICAL issues", then the same of the other bands that fail.
std::vector<std::string> count_failing_nodes(const std::vector<SeverityBand>& bands) {
  std::vector<std::string> counts;
  for (const SeverityBand& band : bands) {
    if (is_failing(band)) {
      const std::size_t nodes = nodes_of(band).size();
      counts.push_back(nodes == 0
                           ? band.name + " issues that name no node"
                           : count_of(nodes, "node", "nodes") + " with " + band.name + " issues");
    }
  }
  return counts;
}

/// Returns what a PASS rests on, nothing when the input does not tell who was examined.
std::vector<std::string> grounds_of_pass(const ReportFacts& facts) {
  if (!facts.examination) {
    return {};
  }
  if (facts.expectation) {
    const std::string expected = std::to_string(facts.expectation->nodes_expected);
    const bool is_one = facts.expectation->nodes_expected == 1;
    return {expected + " of " + expected +
            (is_one ? " expected node was examined" : " expected nodes were examined")};
  }
  return {count_of(facts.examination->nodes_examined, "node was", "nodes were") + " examined"};
}

OutputLog::Colors color_of(Verdict verdict) {
  switch (verdict) {
    case Verdict::PASS:
      return OutputLog::GREEN;
    case Verdict::FAIL:
      return OutputLog::RED;
    case Verdict::UNKNOWN:
      break;
  }
  return OutputLog::YELLOW;
}

}  // namespace

const SeverityBand* worst_failing_band(const std::vector<SeverityBand>& bands) {
  const auto band = std::find_if(bands.begin(), bands.end(), is_failing);
  return band == bands.end() ? nullptr : &*band;
}

std::string format_verdict(const ReportFacts& facts, const std::vector<SeverityBand>& bands) {
  const Verdict verdict = verdict_of(facts);
  std::vector<std::string> reasons =
      verdict == Verdict::PASS ? grounds_of_pass(facts) : verdict_doubts(facts);
  if (verdict == Verdict::FAIL) {
    const std::vector<std::string> failing = count_failing_nodes(bands);
    reasons.insert(reasons.begin(), failing.begin(), failing.end());
  }
  if (reasons.empty()) {
    return verdict_word(verdict);
  }
  return verdict_word(verdict) + (verdict == Verdict::UNKNOWN ? ": " : ", ") + join(reasons, ", ");
}

void write_verdict(const ReportFacts& facts, const std::vector<SeverityBand>& bands, int width) {
  write_line(color_of(verdict_of(facts)), "  Verdict: " + format_verdict(facts, bands), width);
  const SeverityBand* band = worst_failing_band(bands);
  if (band == nullptr) {
    return;
  }
  const std::vector<std::string> nodes = sorted_names(nodes_of(*band));
  if (!nodes.empty()) {
    const std::string list = limited_node_set({.lead = "    ", .width = width}, nodes);
    write_unwrapped_line(OutputLog::NONE, list);
  }
}

void write_last_line(const ReportFacts& facts) {
  const Verdict verdict = verdict_of(facts);
  write_unwrapped_line(color_of(verdict), "End of report. Verdict: " + verdict_word(verdict));
}

}  // namespace vond::standalone
