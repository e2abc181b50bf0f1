#include "standalone/report/facts_of_run.h"

namespace vond::standalone {

ReportFacts facts_of_run(const CheckRun& run, const ReportRecord& record, std::time_t written_at) {
  const StringInterner& nodes = run.collapser().node_names();
  const Examination& examination = run.examination();
  ReportFacts facts;
  for (const std::string& name : run.input_names()) {
    facts.inputs.push_back({name, {}, false});
  }
  facts.written_at = written_at;
  facts.line_width = record.data().line_width;
  facts.findings_read = run.collapser().findings();
  facts.lines_rejected = run.rejected_lines().count;
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
