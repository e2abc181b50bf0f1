#include "standalone/libvond_host/blocks/verdict_lines.h"

#include <algorithm>

#include "standalone/facts/counts.h"
#include "standalone/facts/verdict.h"
#include "standalone/libvond_host/blocks/block_writing.h"
#include "standalone/libvond_host/blocks/limited_text.h"
#include "standalone/text/messages.h"

namespace vond::standalone {
namespace {

using log::OutputLog;

bool is_failing(const SeverityBand& band) { return band.contributes_to_fail && !band.is_empty(); }

/// A band that has issues which contribute to FAIL, and their nodes.
struct FailingBand {
  const SeverityBand* band;
  NodeViews nodes;
};

/// Returns the bands that fail, the worst first. It takes a look at every node of every issue.
std::vector<FailingBand> failing_bands(const std::vector<SeverityBand>& bands) {
  std::vector<FailingBand> failing;
  for (const SeverityBand& band : bands) {
    if (is_failing(band)) {
      failing.push_back({&band, nodes_of(band)});
    }
  }
  return failing;
}

/// Returns "13 nodes with CRITICAL issues".
std::string count_nodes(const FailingBand& failing) {
  const std::string& name = failing.band->name;
  if (failing.nodes.empty()) {
    return name + " issues that name no node";
  }
  return count_of(failing.nodes.size(), "node", "nodes") + " with " + name + " issues";
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

/// Returns the verdict and why.
std::string format_verdict(const ReportFacts& facts, const std::vector<FailingBand>& failing) {
  const Verdict verdict = verdict_of(facts);
  std::vector<std::string> reasons;
  reasons.reserve(failing.size());
  for (const FailingBand& band : failing) {
    reasons.push_back(count_nodes(band));
  }
  const std::vector<std::string> others =
      verdict == Verdict::PASS ? grounds_of_pass(facts) : verdict_doubts(facts);
  reasons.insert(reasons.end(), others.begin(), others.end());
  if (reasons.empty()) {
    return verdict_word(verdict);
  }
  return verdict_word(verdict) + (verdict == Verdict::UNKNOWN ? ": " : ", ") +
         join_with(reasons, ", ");
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

void write_verdict(const ReportFacts& facts, const std::vector<SeverityBand>& bands, int width) {
  const std::vector<FailingBand> failing = failing_bands(bands);
  const std::string lead = "  Verdict: ";
  // Reasons go on behind the label: right above the nodes they would seem to be about these.
  write_line(color_of(verdict_of(facts)), lead + format_verdict(facts, failing), width,
             std::string(lead.size(), ' '));
  if (!failing.empty() && !failing.front().nodes.empty()) {
    const std::vector<std::string> nodes = sorted_names(failing.front().nodes);
    write_unwrapped_line(OutputLog::NONE,
                         limited_node_set({.lead = "    ", .width = width}, nodes));
  }
}

void write_last_line(const ReportFacts& facts) {
  const Verdict verdict = verdict_of(facts);
  write_unwrapped_line(color_of(verdict), "End of report. Verdict: " + verdict_word(verdict));
}

}  // namespace vond::standalone
