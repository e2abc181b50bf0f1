// Findings, one a line: names of nodes with blanks between, a tab, a message, a tab, a remedy. They
// must become the issues that the rule says, in any order, and lose nothing.

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/oracle.h"
#include "fuzz/pattern_oracle.h"
#include "fuzz/pattern_run.h"
#include "fuzz/target.h"
#include "fuzz/text.h"

namespace {

using namespace vond::fuzz;

constexpr std::size_t MOST_FINDINGS = 60;

/// Takes the text before the first `end` off `line`.
std::string_view take_until(std::string_view& line, char end) {
  const std::string_view part = line.substr(0, line.find(end));
  line.remove_prefix(std::min(part.size() + 1, line.size()));
  return part;
}

PatternFinding finding_of(std::string_view line) {
  PatternFinding finding;
  std::string_view names = take_until(line, '\t');
  while (!names.empty()) {
    const std::string_view name = take_until(names, ' ');
    if (!name.empty()) {
      finding.nodes.emplace_back(name);
    }
  }
  finding.texts.emplace_back(take_until(line, '\t'));
  finding.texts.emplace_back(line);
  return finding;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = text_of(data, size);
  std::vector<PatternFinding> findings;
  while (!text.empty() && findings.size() < MOST_FINDINGS) {
    findings.push_back(finding_of(take_line(text)));
    findings.back().row_id = static_cast<int>(findings.size());
  }
  PatternRun run(findings);
  expect_same("the issues that the rule says", run.issues(), expected_issues(findings));
  expect(run.sources() == expected_sources(findings), "every text to be made again",
         text_of(data, size));
  const auto shown = run.shown_texts();
  std::reverse(findings.begin(), findings.end());
  PatternRun reversed(findings);
  expect_same("the order of findings not to count", reversed.issues(), run.issues());
  expect(reversed.shown_texts() == shown, "nor for what is shown", text_of(data, size));
  return 0;
}
