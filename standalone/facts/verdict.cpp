#include "standalone/facts/verdict.h"

#include "standalone/facts/counts.h"
#include "standalone/text/messages.h"

namespace vond::standalone {
namespace {

bool has_silent_nodes(const ReportFacts& facts) {
  return facts.expectation && !facts.expectation->silent.empty();
}

bool has_looked_at_something(const ReportFacts& facts) {
  return facts.findings_left() != 0 ||
         (facts.examination && facts.examination->nodes_examined != 0);
}

void add_doubts_of_parts(const ReportFacts& facts, std::vector<std::string>& doubts) {
  const std::size_t cut_off = names_of_inputs(facts, &ReportFacts::Input::is_cut_off).size();
  if (cut_off != 0) {
    doubts.push_back(count_of(cut_off, "input is", "inputs are") + " cut off");
  }
  if (!facts.parts_missing.empty()) {
    doubts.push_back(count_of(facts.parts_missing.size(), "part is", "parts are") + " missing");
  }
  if (!facts.parts_twice.empty()) {
    doubts.push_back(count_of(facts.parts_twice.size(), "part counts", "parts count") + " double");
  }
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
  const std::vector<std::string> useless = names_of_useless_inputs(facts);
  if (useless.size() == 1) {
    doubts.push_back("no line of " + useless.front() + " could be used");
  } else if (!useless.empty()) {
    doubts.push_back("no line of " + std::to_string(useless.size()) + " inputs could be used");
  }
  add_doubts_of_parts(facts, doubts);
  return doubts;
}

}  // namespace vond::standalone
