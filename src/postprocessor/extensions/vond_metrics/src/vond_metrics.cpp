#include "vond_metrics.h"

#include <cstdint>
#include <string>

#include "definition_states.h"
#include "issue_counts.h"
#include "issue_series.h"
#include "vond/extension/words.h"
#include "vond/facts/run_facts.h"
#include "vond/vocabulary/severity_bands.h"

namespace vond_metrics {

namespace facts = vond::facts;
using vond::extension::type_word;
using vond::vocabulary::SEVERITY_BANDS;

VondMetrics::VondMetrics(vond::postprocessor::PostprocessorExtensionData& engine_data)
    : PostprocessorExtension(engine_data) {
  data = engine_data;
}

int VondMetrics::run() {
  MetricWriter out;
  write_report(out);
  write_issues(out);
  write_definitions(out);
  write_nodes(out);
  write_issue_nodes(out);
  write_changes(out);
  out.finish();
  return 0;
}

void VondMetrics::write_report(MetricWriter& out) const {
  const std::string verdict = facts::verdict();
  out.begin("vond_report_info", "The program that wrote the report.");
  out.add({{"version", facts::tool_version()}}, 1);
  out.begin("vond_report_written_timestamp_seconds",
            "When the report was written, in seconds since 1970-01-01 00:00:00 UTC.");
  out.add({}, facts::written_at());
  out.begin("vond_report_failed", "1 when the verdict is FAIL, else 0.");
  out.add_flag({}, verdict == "FAIL");
  out.begin("vond_report_unknown", "1 when the verdict is UNKNOWN, else 0.");
  out.add_flag({}, verdict == "UNKNOWN");
}

void VondMetrics::write_issues(MetricWriter& out) const {
  out.begin("vond_issues", "Issues by severity, type and whether they contribute to FAIL.");
  for (const auto& [band, type, contributes, issues] : count_issues(data, SEVERITY_BANDS)) {
    out.add({{"severity", band},
             {"type", type_word(type)},
             {"contributes", contributes ? "true" : "false"}},
            static_cast<std::int64_t>(issues));
  }
  if (const auto acknowledged = facts::issues_acknowledged()) {
    out.begin("vond_issues_acknowledged", "Issues that are acknowledged and counted nowhere else.");
    out.add({}, static_cast<std::int64_t>(*acknowledged));
  }
}

void VondMetrics::write_definitions(MetricWriter& out) const {
  out.begin("vond_definition_failed",
            "1 for a definition that fails, 0 for one that passes; skipped ones are left out.");
  if (data.fwd_root) {
    const DefinitionStates definitions(*data.fwd_root);
    for (const auto& [name, failed] : definitions.states()) {
      out.add_flag({{"definition", name}}, failed);
    }
  }
}

void VondMetrics::write_nodes(MetricWriter& out) const {
  out.begin("vond_nodes",
            "Nodes that findings name, that were examined, that were expected and not examined.");
  const auto add = [&out](const char* state, std::size_t nodes) {
    out.add({{"state", state}}, static_cast<std::int64_t>(nodes));
  };
  add("seen", facts::nodes_seen());
  if (const auto examined = facts::nodes_examined()) {
    add("examined", *examined);
  }
  if (facts::nodes_expected()) {
    add("not_examined", facts::nodes_not_examined().size());
  }
}

void VondMetrics::write_issue_nodes(MetricWriter& out) const {
  const WorstIssues worst(data, SEVERITY_BANDS);
  out.begin("vond_issue_nodes", "Nodes on which issues of an id were found; the worst ids alone.");
  for (const IssueSeries& series : worst.series()) {
    out.add({{"id", series.id}, {"severity", series.band}, {"type", type_word(series.type)}},
            static_cast<std::int64_t>(series.count_nodes()));
  }
  out.begin("vond_issues_omitted", "Ids that vond_issue_nodes leaves out.");
  out.add({}, static_cast<std::int64_t>(worst.omitted_ids()));
}

void VondMetrics::write_changes(MetricWriter& out) {
  const auto since = facts::since();
  if (!since) {
    return;
  }
  out.begin("vond_issues_since", "What has become of issues since the earlier run.");
  const auto add = [&out](const char* change, std::size_t issues) {
    out.add({{"change", change}}, static_cast<std::int64_t>(issues));
  };
  add("new", since->new_issues);
  add("worse", since->worse);
  add("reworded", since->reworded);
  add("same", since->same);
  add("better", since->better);
  add("gone", since->gone.size());
  add("not_looked_at", since->not_looked_at.size());
  out.begin("vond_nodes_not_looked_at",
            "Nodes that had issues of which nobody knows whether they still have them.");
  out.add({}, static_cast<std::int64_t>(since->nodes_not_looked_at.size()));
}

}  // namespace vond_metrics

vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_metrics::VondMetrics(data);
}
