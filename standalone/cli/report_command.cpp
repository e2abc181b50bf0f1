#include "standalone/cli/report_command.h"

#include <algorithm>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/cli/environment.h"
#include "standalone/cli/extension_choice.h"
#include "standalone/cli/input_reading.h"
#include "standalone/cli/message.h"
#include "standalone/cli/output_conflicts.h"
#include "standalone/cli/report_outputs.h"
#include "standalone/facts/verdict.h"
#include "standalone/libvond_host/current_facts.h"
#include "standalone/libvond_host/issue_facts.h"
#include "standalone/report/check_run.h"
#include "standalone/report/facts_of_run.h"
#include "standalone/report/node_list_file.h"
#include "standalone/report/racks_file.h"
#include "standalone/report/record_issue_facts.h"
#include "standalone/report/report_record.h"
#include "standalone/report/run_history.h"
#include "vond/log/error_log.h"
#include "vond/vocabulary/tables.h"

namespace vond::standalone {
namespace {

void set_up_error_log(const Options& options) {
  log::LOG_LEVEL = vocabulary::LOG_LEVELS.at(options.log_level);
  log::LOG_OUTPUT = options.syslog ? 1 : 0;
  if (options.syslog) {
    use_system_log();
  }
}

/// Only one output needs to know what all findings said.
bool asks_for_findings(const Options& options) {
  return std::any_of(
      options.extensions.begin(), options.extensions.end(),
      [](const ExtensionRequest& request) { return request.extension == "findings"; });
}

/// Reads the definitions, too, and adds what was odd about them to `warnings`.
RecordOptions make_record_options(const Options& options, std::vector<std::string>& warnings) {
  RecordOptions record_options;
  record_options.fail_threshold = options.fail_threshold;
  record_options.line_width = options.width ? *options.width : default_width();
  record_options.log_level = options.log_level;
  record_options.keeps_findings = asks_for_findings(options);
  if (options.definitions) {
    DefinitionsFile file = read_definitions_with_messages(*options.definitions);
    record_options.definitions = std::move(file.roots);
    warnings = std::move(file.warnings);
  }
  return record_options;
}

/// Returns the names that were given with those of the files.
std::vector<std::string> expected_nodes(const Options& options) {
  std::vector<std::string> nodes = options.expected;
  for (const std::string& path : options.expect_files) {
    const std::vector<std::string> more = read_node_list(path);
    nodes.insert(nodes.end(), more.begin(), more.end());
  }
  return nodes;
}

/// Reads what is acknowledged, and adds what is wrong with it to `warnings` where it is ignored.
std::optional<std::vector<Acknowledgement>> acknowledged_at(std::time_t now, const Options& options,
                                                            std::vector<std::string>& warnings) {
  if (!options.acknowledged) {
    return std::nullopt;
  }
  AcknowledgementsFile file = read_acknowledgements_with_messages(
      *options.acknowledged, {.now = now, .days = options.acknowledge_at_most},
      options.ignores_acknowledged ? FaultyLines::LEFT_OUT : FaultyLines::REFUSED);
  warnings.insert(warnings.end(), file.faults.begin(), file.faults.end());
  return options.ignores_acknowledged ? std::nullopt : std::optional(std::move(file.entries));
}

/// Reads the files of expected nodes, too.
RunSources make_sources(const Options& options) {
  return {.findings = options.inputs,
          .is_strict = options.is_strict,
          .definitions_are_paths = !options.definitions.has_value(),
          .collapse_by = options.collapse_by,
          .keeps_findings = asks_for_findings(options),
          .examined = options.examined,
          .expected = expected_nodes(options),
          .expected_parts = options.expected_parts,
          .own_part = options.part};
}

/// Reads the earlier runs, if any, in the way that `sources` are read.
std::unique_ptr<RunHistory> read_history(const Options& options, const RunSources& sources) {
  if (options.since.empty()) {
    return nullptr;
  }
  auto history = std::make_unique<RunHistory>(
      sources.acknowledged.value_or(std::vector<Acknowledgement>()), sources.time);
  for (const std::string& path : options.since) {
    const std::unique_ptr<CheckRun> run =
        read_run_with_messages({.findings = {path},
                                .is_strict = sources.is_strict,
                                .definitions_are_paths = sources.definitions_are_paths,
                                .collapse_by = sources.collapse_by,
                                .time = sources.time});
    history->add_earlier(*run);
  }
  return history;
}

/// Whether an issue that contributes to FAIL is one of those that `fail_on` asks for.
bool has_failed(const ReportRecord& record, const RunHistory& history, FailOn fail_on) {
  return record.any_fails([&](std::size_t number) {
    return fail_on == FailOn::NEW ? history.is_new(number) : !history.is_known(number);
  });
}

/// Returns the status of a report that is complete. `history` may be null.
ExitStatus status_of(const ReportFacts& facts, const ReportRecord& record,
                     const RunHistory* history, FailOn fail_on) {
  if (history == nullptr || fail_on == FailOn::ANY || !verdict_doubts(facts).empty()) {
    return verdict_of(facts) == Verdict::PASS ? PASSED : FAILED;
  }
  return has_failed(record, *history, fail_on) ? FAILED : PASSED;
}

}  // namespace

ExitStatus write_report(const Options& options) {
  // What can be wrong is found before anything is opened, and that before the long reading.
  set_up_error_log(options);
  refuse_conflicting_outputs(options);
  const std::vector<ChosenExtension> extensions = choose_extensions(options.extensions);
  const std::time_t started_at = report_time();
  std::vector<std::string> warnings;
  RecordOptions record_options = make_record_options(options, warnings);
  RunSources sources = make_sources(options);
  sources.time = started_at;
  const auto racks = options.racks ? read_racks(*options.racks) : std::vector<ReportFacts::Rack>();
  sources.acknowledged = acknowledged_at(started_at, options, warnings);
  ReportOutputs outputs(extensions, options.outputs, wants_color(options.color));

  const std::unique_ptr<RunHistory> history = read_history(options, sources);
  record_options.seen_names = history ? &history->names() : nullptr;
  const std::unique_ptr<CheckRun> run = read_run_with_messages(sources);
  ReportRecord record(run->collapser(), record_options, run->everything());
  // Behind the reading: what was collected meanwhile, at a gateway, is not from the future.
  report_facts() = facts_of_run(*run, record, report_time());
  report_facts().racks = racks;
  if (history) {
    history->compare(*run, record);
    report_facts().changes = history->summary();
  }
  report_facts().warnings.insert(report_facts().warnings.begin(), warnings.begin(), warnings.end());
  if (options.ignores_acknowledged) {
    report_facts().acknowledged = ReportFacts::Acknowledged{.is_ignored = true};
  }
  RecordIssueFacts issue_facts(record, run->collapser().node_names(), run->names_of_kept(),
                               history.get());
  const IssueFactsConnection connection(issue_facts);
  if (!outputs.write(record.data())) {
    return NO_REPORT;
  }
  log_notice("verdict: " + verdict_word(verdict_of(report_facts())));
  return status_of(report_facts(), record, history.get(), options.fail_on);
}

}  // namespace vond::standalone
