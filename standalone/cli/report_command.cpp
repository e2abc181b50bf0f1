#include "standalone/cli/report_command.h"

#include <syslog.h>

#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "standalone/cli/destinations.h"
#include "standalone/cli/environment.h"
#include "standalone/cli/extension_runner.h"
#include "standalone/cli/input_reading.h"
#include "standalone/cli/message.h"
#include "standalone/cli/usage_error.h"
#include "standalone/extensions/extension_path.h"
#include "standalone/libvond_host/report_facts.h"
#include "standalone/libvond_host/verdict.h"
#include "standalone/report/check_run.h"
#include "standalone/report/facts_of_run.h"
#include "standalone/report/report_record.h"
#include "vond/log/error_log.h"
#include "vond/vocabulary/tables.h"

namespace vond::standalone {
namespace {

bool is_same_file(const std::string& output, const std::string& input) {
  std::error_code error;
  return std::filesystem::is_regular_file(output, error) &&
         std::filesystem::equivalent(output, input == "-" ? "/dev/stdin" : input, error);
}

/// A report in place of its own input is never what was meant.
void refuse_to_replace_inputs(const Options& options) {
  std::vector<std::string> inputs = options.inputs;
  if (options.definitions) {
    inputs.push_back(*options.definitions);
  }
  for (const std::string& output : options.outputs) {
    for (const std::string& input : inputs) {
      if (is_same_file(output, input)) {
        throw UsageError("--output is \"" + output + "\", which is an input, too");
      }
    }
  }
}

void set_up_error_log(const Options& options) {
  log::LOG_LEVEL = vocabulary::LOG_LEVELS.at(options.log_level);
  log::LOG_OUTPUT = options.syslog ? 1 : 0;
  if (options.syslog) {
    openlog("vond-report", LOG_PID, LOG_USER);
  }
}

/// Reads the definitions, too.
RecordOptions make_record_options(const Options& options) {
  RecordOptions record_options;
  record_options.fail_threshold = options.fail_threshold;
  record_options.line_width = options.width ? *options.width : default_width();
  record_options.log_level = options.log_level;
  if (options.definitions) {
    record_options.definitions = read_definitions_with_messages(*options.definitions);
  }
  return record_options;
}

RunSources make_sources(const Options& options) {
  return {.findings = options.inputs,
          .keep_going = options.keep_going,
          .definitions_are_paths = !options.definitions.has_value(),
          .collapse_by = options.collapse_by,
          .examined = options.examined,
          .expected = options.expected};
}

/// Returns the libraries to run.
std::vector<std::string> extension_paths(const Options& options) {
  if (!options.extensions.empty()) {
    return options.extensions;
  }
  return {extension_path(TEXT_REPORT, extension_folders(program_folder(), VOND_EXTENSION_FOLDER))};
}

void run_extensions(const Options& options, ReportRecord& record, Destinations& destinations) {
  const OutputLogConnection connection(destinations);
  try {
    ExtensionRunner(record.data()).run(extension_paths(options));
  } catch (...) {
    destinations.abandon();
    throw;
  }
}

/// Returns whether all destinations are complete, and prints what is wrong with the others.
bool finish(Destinations& destinations) {
  const Destinations::Outcome outcome = destinations.finish();
  for (const std::string& error : outcome.errors) {
    print_message("error", error);
  }
  return outcome.is_complete;
}

/// Returns the status of a report that is complete.
ExitStatus status_of(const ReportFacts& facts) {
  return verdict_of(facts) == Verdict::PASS ? PASSED : FAILED;
}

}  // namespace

ExitStatus write_report(const Options& options) {
  // What can be wrong is found before anything is opened, and that before the long reading.
  refuse_to_replace_inputs(options);
  set_up_error_log(options);
  const std::time_t written_at = report_time();
  const RecordOptions record_options = make_record_options(options);
  Destinations destinations(options.outputs, wants_color(options.color));

  const std::unique_ptr<CheckRun> run = read_run_with_messages(make_sources(options));
  ReportRecord record(run->collapser(), record_options);
  report_facts() = facts_of_run(*run, record, written_at);
  run_extensions(options, record, destinations);
  return finish(destinations) ? status_of(report_facts()) : NO_REPORT;
}

}  // namespace vond::standalone
