#include "standalone/libvond_host/validation_block.h"

#include <string>
#include <vector>

#include "standalone/nodes/node_folding.h"
#include "standalone/text/messages.h"

namespace vond::standalone {
namespace {

using log::OutputLog;

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
                    fold_node_names({facts.examination->not_examined_with_findings}));
  }
  if (!facts.expected_and_not_examined.empty()) {
    lines.push_back("Nodes that were expected and not examined: " +
                    fold_node_names({facts.expected_and_not_examined}));
  }
  return lines;
}

}  // namespace

ReportBlock validation_block(const ReportFacts& facts, int width) {
  ReportBlock block(width);
  block.add("Validation\n");
  block.add_line(OutputLog::NONE, "  Findings read: " + std::to_string(facts.findings_read));
  block.add_line(OutputLog::NONE, "  Nodes seen: " + std::to_string(facts.nodes_seen));
  for (const std::string& doubt : doubts(facts)) {
    block.add_line(OutputLog::YELLOW, "  " + doubt);
  }
  block.add("\n");
  return block;
}

}  // namespace vond::standalone
