#include "standalone/report/facts_of_run.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>

#include "standalone/report/acknowledged_facts.h"
#include "standalone/report/alike_names.h"
#include "standalone/text/utc_time.h"

namespace vond::standalone {
namespace {

ReportFacts::Input facts_of_input(const RunInput& input, std::time_t written_at) {
  ReportFacts::Input facts{.name = input.name};
  if (input.changed_at) {
    facts.age = age_at(written_at, *input.changed_at);
  }
  return facts;
}

/// Returns when the oldest findings were collected, by the ages of the inputs. `begun_at` is when
/// the report was begun.
std::time_t time_of_collection(const ReportFacts& facts, std::time_t begun_at) {
  std::optional<std::int64_t> oldest;
  for (const ReportFacts::Input& input : facts.inputs) {
    if (input.age) {
      // Findings that say that they lie ahead still say so behind this run. A file that does was
      // read all the same, and what it holds was collected before.
      const std::int64_t age =
          input.parts.empty() ? std::max<std::int64_t>(*input.age, 0) : *input.age;
      oldest = std::max(oldest.value_or(age), age);
    }
  }
  const std::time_t time = facts.written_at - oldest.value_or(0);
  if (time > facts.written_at) {
    return time;
  }
  // What came while the report waited may be as old as its beginning, by which it was decided what
  // is acknowledged. Any number may be a file's time, and not every one can be written as a date.
  return std::max<std::time_t>(std::min(time, begun_at), 0);
}

/// Takes what the inputs tell of themselves into account.
void add_facts_of_parts(ReportFacts& facts, const CheckRun& run) {
  std::map<std::string, std::size_t> parts;
  if (!run.own_part().empty()) {
    ++parts[run.own_part()];
  }
  for (std::size_t i = 0; i < run.collected().size(); ++i) {
    const CollectedParts& collected = run.collected()[i];
    facts.inputs[i].is_cut_off = collected.is_cut_off();
    if (collected.oldest()) {
      facts.inputs[i].age = age_at(facts.written_at, *collected.oldest());
    }
    facts.lines_rejected += collected.lines_rejected();
    for (const RunBegin& begin : collected.begins()) {
      facts.inputs[i].parts.push_back({begin.parts, age_at(facts.written_at, begin.written_at)});
      for (const std::string& part : begin.parts) {
        ++parts[part];
      }
    }
  }
  facts.collected_at = time_of_collection(facts, run.begun_at());
  for (const auto& [part, times] : parts) {
    facts.parts.insert(facts.parts.end(), times, part);
    if (times > 1) {
      facts.parts_twice.push_back(part);
    }
  }
  for (const std::string& part : run.expected_parts()) {
    if (!parts.contains(part)) {
      facts.parts_missing.push_back(part);
    }
  }
}

ReportFacts::Expectation facts_of_expectation(const Examination& examination,
                                              const StringInterner& nodes_with_findings) {
  const std::vector<std::string> seen = examination.seen(nodes_with_findings);
  ReportFacts::Expectation facts{examination.expected(),
                                 examination.expected_and_not_in(seen),
                                 examination.not_expected_of(seen),
                                 {}};
  facts.alike = find_alike_names(facts.silent, facts.not_expected);
  return facts;
}

}  // namespace

ReportFacts facts_of_reading(const CheckRun& run, std::time_t written_at) {
  const StringInterner& nodes = run.collapser().node_names();
  const Examination& examination = run.examination();
  ReportFacts facts;
  for (std::size_t i = 0; i < run.inputs().size(); ++i) {
    facts.inputs.push_back(facts_of_input(run.inputs()[i], written_at));
    facts.inputs.back().is_useless = run.usable_lines()[i] == 0;
  }
  facts.written_at = written_at;
  facts.findings_read = run.findings_read();
  facts.findings_without_definition = run.findings_without_definition();
  facts.lines_rejected = run.rejected_lines().count;
  for (const InputError& error : run.rejected_lines().errors) {
    facts.first_rejections.emplace_back(error.what());
  }
  add_facts_of_parts(facts, run);
  facts.warnings = run.warnings();
  facts.nodes_seen = nodes.size();
  if (examination.is_known()) {
    facts.examination = {examination.examined(), examination.not_examined(nodes),
                         examination.examined_names()};
  }
  if (examination.expected() != 0) {
    facts.expectation = facts_of_expectation(examination, nodes);
  }
  return facts;
}

ReportFacts facts_of_run(const CheckRun& run, const ReportRecord& record, std::time_t written_at) {
  ReportFacts facts = facts_of_reading(run, written_at);
  facts.line_width = record.data().line_width;
  facts.unknown_definitions = record.unknown_definitions();
  facts.unknown_based_on = record.unknown_based_on();
  facts.failed = record.has_failed();
  add_facts_of_acknowledged(facts, run);
  return facts;
}

}  // namespace vond::standalone
