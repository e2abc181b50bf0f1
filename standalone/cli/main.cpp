#include <malloc.h>
#include <sys/ioctl.h>
#include <syslog.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>
#include <filesystem>
#include <new>
#include <string>
#include <string_view>
#include <system_error>
#include <variant>
#include <vector>

#include "standalone/cli/destinations.h"
#include "standalone/cli/emergencies.h"
#include "standalone/cli/exit_status.h"
#include "standalone/cli/input.h"
#include "standalone/cli/message.h"
#include "standalone/cli/options.h"
#include "standalone/cli/output.h"
#include "standalone/definitions/definitions_reader.h"
#include "standalone/extensions/extension_loader.h"
#include "standalone/input/input_error.h"
#include "standalone/libvond_host/report_facts.h"
#include "standalone/report/collapser.h"
#include "standalone/report/examination.h"
#include "standalone/report/report_record.h"
#include "standalone/text/harmless_text.h"
#include "vond/log/error_log.h"
#include "vond/vocabulary/tables.h"

namespace vond::standalone {
namespace {

constexpr int DEFAULT_WIDTH = 80;

/// Returns the width of the terminal that standard output is, DEFAULT_WIDTH if it is none.
int default_width() {
  winsize size{};
  const bool known =
      isatty(STDOUT_FILENO) == 1 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : DEFAULT_WIDTH;
}

bool wants_color(ColorMode mode) {
  if (mode != ColorMode::AUTO) {
    return mode == ColorMode::ALWAYS;
  }
  const char* no_color = std::getenv("NO_COLOR");
  return isatty(STDOUT_FILENO) == 1 && (no_color == nullptr || *no_color == '\0');
}

/// Returns the report's time: now, or what SOURCE_DATE_EPOCH says, for reports that can be
/// reproduced. Throws UsageError when that is no time.
std::time_t report_time() {
  constexpr std::time_t END_OF_YEAR_9999 = 253402300799;
  const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
  if (epoch == nullptr || *epoch == '\0') {
    return std::time(nullptr);
  }
  const char* const end = epoch + std::strlen(epoch);
  std::time_t seconds = 0;
  const auto [rest, error] = std::from_chars(epoch, end, seconds);
  if (error != std::errc() || rest != end || seconds < 0 || seconds > END_OF_YEAR_9999) {
    throw UsageError("SOURCE_DATE_EPOCH is \"" + harmless(epoch) +
                     "\", expected seconds since 1970 as a whole number");
  }
  return seconds;
}

/// Returns where the text report is: beside the program, as it is built, or in its installed place.
std::string default_extension() {
  namespace fs = std::filesystem;
  const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
  const fs::path beside = folder / "vond_output_log.so";
  const fs::path installed = folder.parent_path() / VOND_EXTENSION_FOLDER / "vond_output_log.so";
  return fs::exists(beside) ? beside : installed;
}

void set_logging(const Options& options) {
  log::LOG_LEVEL = vocabulary::LOG_LEVELS.at(options.log_level);
  log::LOG_OUTPUT = options.syslog ? 1 : 0;
  if (options.syslog) {
    openlog("vond-report", LOG_PID, LOG_USER);
  }
}

std::vector<DefinitionSpec> read_definition_specs(const std::string& path) {
  DefinitionsFile file = read_definitions(path);
  for (const std::string& warning : file.warnings) {
    print_message("warning", warning);
  }
  return std::move(file.roots);
}

void fill_facts(ReportFacts& facts, Input& input, const Report& report) {
  const StringInterner& nodes = input.collapser().node_names();
  const Examination& examination = input.examination();
  facts.findings_read = input.collapser().findings();
  facts.lines_rejected = input.lines_rejected();
  facts.nodes_seen = nodes.size();
  facts.unknown_definitions = report.unknown_definitions();
  facts.unknown_based_on = report.unknown_based_on();
  facts.failed = report.failed();
  if (examination.is_known()) {
    facts.examination = {examination.examined(), examination.not_examined(nodes)};
  }
  if (examination.expected() != 0) {
    facts.expectation = {examination.expected(), examination.expected_and_not_examined(), {}, {}};
  }
}

/// Streams swallow the exceptions of their buffers: for lack of memory a statement would be cut
/// short and nobody would know. So each attempt that failed counts.
void run_extensions(const Options& options, Report& report) {
  const std::size_t failures_before = failed_allocations();
  if (options.extensions.empty()) {
    run_extension(default_extension(), report.record());
  }
  for (const std::string& path : options.extensions) {
    run_extension(path, report.record());
  }
  if (failed_allocations() != failures_before) {
    throw std::bad_alloc();
  }
}

ExitStatus exit_status(const ReportFacts& facts, const Report& report) {
  if (facts.lines_rejected != 0) {
    return BAD_INPUT;
  }
  // Silence is not health.
  const bool is_silent = facts.expectation && !facts.expectation->silent.empty();
  return report.failed() || is_silent ? FAILED : PASSED;
}

/// A report in place of its own input is never what was meant.
void refuse_to_replace_inputs(const Options& options) {
  std::vector<std::string> inputs = options.inputs;
  if (options.definitions) {
    inputs.push_back(*options.definitions);
  }
  for (const std::string& output : options.outputs) {
    for (const std::string& input : inputs) {
      std::error_code error;
      if (std::filesystem::is_regular_file(output, error) &&
          std::filesystem::equivalent(output, input == "-" ? "/dev/stdin" : input, error)) {
        throw UsageError("--output is \"" + output + "\", which is an input, too");
      }
    }
  }
}

ExitStatus write_report(const Options& options) {
  refuse_to_replace_inputs(options);
  set_logging(options);
  ReportFacts& facts = report_facts();
  facts.written_at = report_time();
  facts.line_width = options.width ? *options.width : default_width();
  for (const std::string& input : options.inputs) {
    facts.inputs.push_back({input == "-" ? "standard input" : harmless(input), {}, false});
  }

  RecordOptions how;
  how.collapse_by = options.collapse_by;
  how.fail_threshold = options.fail_threshold;
  how.line_width = facts.line_width;
  how.log_level = options.log_level;
  if (options.definitions) {
    how.definitions = read_definition_specs(*options.definitions);
  }

  Destinations destinations(options.outputs, wants_color(options.color));
  Input input(options);
  Report report(input.collapser(), how);
  fill_facts(facts, input, report);
  try {
    run_extensions(options, report);
  } catch (...) {
    destinations.abandon();
    throw;
  }
  const Destinations::Outcome outcome = destinations.finish();
  for (const std::string& error : outcome.errors) {
    print_message("error", error);
  }
  return outcome.complete ? exit_status(facts, report) : NO_REPORT;
}

ExitStatus print_information(const Information& information) {
  StandardOutput output;
  output.stream() << information.text;
  const int error = output.finish();
  if (error == 0) {
    return PASSED;
  }
  if (error != EPIPE) {
    print_message("error", output.error_message());
  }
  return NO_REPORT;
}

ExitStatus run(int argc, const char* const* argv) {
  const auto request = parse_options(argc, argv, isatty(STDIN_FILENO) == 1);
  if (const auto* options = std::get_if<Options>(&request)) {
    return write_report(*options);
  }
  return print_information(std::get<Information>(request));
}

}  // namespace
}  // namespace vond::standalone

int main(int argc, char** argv) {
  using namespace vond::standalone;
  // A large report takes millions of small pieces of memory and gives them back at a few points.
  // Without this they would be kept in lists and merged all at once, ever again.
  mallopt(M_MXFAST, 0);
  occupy_standard_descriptors();
  // A reader that goes away is an error of one destination, not the end of all of them.
  std::signal(SIGPIPE, SIG_IGN);
  prepare_for_emergencies();
  try {
    return run(argc, argv);
  } catch (const UsageError& error) {
    print_message("error", std::string(error.what()) + "; see vond-report --help");
    return BAD_INPUT;
  } catch (const InputError& error) {
    print_message("error", error.what());
    return BAD_INPUT;
  } catch (const std::bad_alloc&) {
    print_lack_of_memory();
  } catch (const std::exception& error) {
    print_message("error", error.what());
  }
  return NO_REPORT;
}
