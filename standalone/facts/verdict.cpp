#include "standalone/facts/verdict.h"

#include <algorithm>

#include "standalone/facts/counts.h"

namespace vond::standalone {
namespace {

bool has_silent_nodes(const ReportFacts& facts) {
  return facts.expectation && !facts.expectation->silent.empty();
}

bool has_looked_at_something(const ReportFacts& facts) {
  return facts.findings_read != 0 || (facts.examination && facts.examination->nodes_examined != 0);
}

/// Returns the inputs of several that gave nothing. A single one has its own doubts: nothing was
/// looked at, lines were left out.
std::vector<std::string> useless_inputs(const ReportFacts& facts) {
  std::vector<std::string> names;
  for (const ReportFacts::Input& input : facts.inputs) {
    if (input.is_useless && facts.inputs.size() > 1) {
      names.push_back(input.name);
    }
  }
  return names;
}

}  // namespace

Verdict verdict_of(const ReportFacts& facts) {
  if (facts.failed) {
    return Verdict::FAIL;
  }
  return verdict_doubts(facts).empty() ? Verdict::PASS : Verdict::UNKNOWN;
}

std::string verdict_word(Verdict verdict) {
  switch (verdict) {
    case Verdict::PASS:
      return "PASS";
    case Verdict::FAIL:
      return "FAIL";
    case Verdict::UNKNOWN:
      break;
  }
  return "UNKNOWN";
}

std::vector<std::string> verdict_doubts(const ReportFacts& facts) {
  std::vector<std::string> doubts;
  if (has_silent_nodes(facts)) {
    doubts.push_back(count_of_silent_nodes(facts));
  } else if (!has_looked_at_something(facts)) {
    doubts.emplace_back("nothing was looked at");
  }
  if (facts.lines_rejected != 0) {
    doubts.push_back(count_of_rejected_lines(facts));
  }
  const std::vector<std::string> useless = useless_inputs(facts);
  if (useless.size() == 1) {
    doubts.push_back("no line of " + useless.front() + " could be used");
  } else if (!useless.empty()) {
    doubts.push_back("no line of " + std::to_string(useless.size()) + " inputs could be used");
  }
  return doubts;
}

}  // namespace vond::standalone
