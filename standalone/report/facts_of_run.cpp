#include "standalone/report/facts_of_run.h"

namespace vond::standalone {

ReportFacts facts_of_run(const CheckRun& run, const ReportRecord& record, std::time_t written_at) {
  const StringInterner& nodes = run.collapser().node_names();
  const Examination& examination = run.examination();
  ReportFacts facts;
  for (std::size_t i = 0; i < run.input_names().size(); ++i) {
    facts.inputs.push_back({run.input_names()[i], {}, !run.complaints()[i].empty()});
  }
  facts.written_at = written_at;
  facts.line_width = record.data().line_width;
  facts.findings_read = run.collapser().findings();
  facts.lines_rejected = run.rejected_lines().count;
  for (const InputError& error : run.rejected_lines().errors) {
    facts.first_rejections.emplace_back(error.what());
  }
  facts.warnings = run.warnings();
  facts.nodes_seen = nodes.size();
  facts.unknown_definitions = record.unknown_definitions();
  facts.unknown_based_on = record.unknown_based_on();
  facts.failed = record.has_failed();
  if (examination.is_known()) {
    facts.examination = {examination.examined(), examination.not_examined(nodes)};
  }
  if (examination.expected() != 0) {
    facts.expectation = {examination.expected(), examination.expected_and_not_examined(), {}, {}};
  }
  return facts;
}

}  // namespace vond::standalone
