#include "standalone/facts/counts.h"

#include "standalone/text/messages.h"

namespace vond::standalone {

std::string count_of_silent_nodes(const ReportFacts& facts) {
  const ReportFacts::Expectation& expectation = *facts.expectation;
  const std::string nodes = std::to_string(expectation.silent.size()) + " of " +
                            count_of(expectation.nodes_expected, "expected node", "expected nodes");
  const bool is_one = expectation.silent.size() == 1;
  // A node without findings may have been examined all the same, unless there are no findings.
  if (facts.examination || facts.findings_left() == 0) {
    return nodes + (is_one ? " was not examined" : " were not examined");
  }
  return nodes + (is_one ? " is silent" : " are silent");
}

std::vector<std::string> names_of_inputs(const ReportFacts& facts, bool ReportFacts::Input::*flag) {
  std::vector<std::string> names;
  for (const ReportFacts::Input& input : facts.inputs) {
    if (input.*flag) {
      names.push_back(input.name);
    }
  }
  return names;
}

std::string count_of_rejected_lines(const ReportFacts& facts) {
  return count_of(facts.lines_rejected, "line of input was", "lines of input were") + " left out";
}

std::vector<std::string> names_of_useless_inputs(const ReportFacts& facts) {
  return facts.inputs.size() > 1 ? names_of_inputs(facts, &ReportFacts::Input::is_useless)
                                 : std::vector<std::string>();
}

}  // namespace vond::standalone
