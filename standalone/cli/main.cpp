#include <sys/ioctl.h>
#include <syslog.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <system_error>
#include <vector>

#include "standalone/cli/options.h"
#include "standalone/cli/output.h"
#include "standalone/engine/collapser.h"
#include "standalone/engine/definitions_reader.h"
#include "standalone/engine/extension_loader.h"
#include "standalone/engine/findings_reader.h"
#include "standalone/engine/input_error.h"
#include "standalone/engine/record.h"
#include "standalone/host/report_facts.h"
#include "vond/log/error_log.h"
#include "vond/log/output_log.h"
#include "vond/vocabulary/tables.h"

namespace vond::standalone {
namespace {

enum ExitStatus : int { PASSED = 0, FAILED = 1, BAD_INPUT = 2, NO_REPORT = 3 };

constexpr int DEFAULT_WIDTH = 80;

void print_message(const std::string& kind, const std::string& message) {
  std::cerr << "vond-report: " + kind + ": " + message + "\n";
}

/// Returns the width of the terminal behind standard output.
int terminal_width() {
  winsize size{};
  const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : DEFAULT_WIDTH;
}

bool wants_color(ColorMode mode, bool is_terminal) {
  if (mode != ColorMode::AUTO) return mode == ColorMode::ALWAYS;
  const char* no_color = std::getenv("NO_COLOR");
  return is_terminal && (no_color == nullptr || *no_color == '\0');
}

/// Returns the report's time: now, or what SOURCE_DATE_EPOCH says for reports that can be
/// reproduced. Throws UsageError when that is no time.
std::time_t report_time() {
  const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
  if (epoch == nullptr || *epoch == '\0') return std::time(nullptr);
  char* end = nullptr;
  errno = 0;
  const long long seconds = std::strtoll(epoch, &end, 10);
  if (errno != 0 || *end != '\0') {
    throw UsageError(std::string("SOURCE_DATE_EPOCH is \"") + epoch +
                     "\", expected seconds since 1970 as a whole number");
  }
  return static_cast<std::time_t>(seconds);
}

/// Returns where the text report is: beside the program, as it is built, or in its installed place.
std::string default_extension() {
  namespace fs = std::filesystem;
  const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
  const fs::path beside = folder / "vond_output_log.so";
  const fs::path installed = folder.parent_path() / VOND_EXTENSION_FOLDER / "vond_output_log.so";
  return fs::exists(beside) ? beside : installed;
}

RecordOptions record_options(const Options& options, int width) {
  RecordOptions record;
  record.fail_threshold = options.fail_threshold;
  record.line_width = width;
  record.log_level = options.log_level;
  if (options.definitions) record.definitions = read_definitions(*options.definitions);
  return record;
}

void read_findings(const Options& options, Collapser& collapser) {
  FindingsReader reader([&collapser](const Finding& finding) { collapser.add(finding); });
  for (const std::string& input : options.inputs) {
    reader.read(input);
    report_facts().inputs.push_back(input == "-" ? "standard input" : input);
  }
  for (const std::string& warning : reader.warnings()) print_message("warning", warning);
}

void set_logging(const Options& options) {
  log::LOG_LEVEL = vocabulary::LOG_LEVELS.at(options.log_level);
  log::LOG_OUTPUT = options.syslog ? 1 : 0;
  if (options.syslog) openlog("vond-report", LOG_PID, LOG_USER);
}

/// The destinations of the report, registered with the output log.
class Destinations {
 public:
  /// Throws OutputError.
  explicit Destinations(const Options& options) {
    auto& log = log::OutputLog::singleton_obj;
    log = std::make_unique<log::OutputLog::OutputLogStream>();
    log->streams.push_back(
        {&standard_output_.stream(), wants_color(options.color, standard_output_.is_terminal())});
    for (const std::string& path : options.outputs) {
      files_.push_back(std::make_unique<OutputFile>(path));
      log->streams.push_back({&files_.back()->stream(), false});
    }
  }
  Destinations(const Destinations&) = delete;
  Destinations& operator=(const Destinations&) = delete;
  ~Destinations() { log::OutputLog::singleton_obj.reset(); }

  bool is_terminal() const { return standard_output_.is_terminal(); }

  /// Writes what is held back of a report that is not complete; the files are not kept.
  void abandon() noexcept { standard_output_.finish(); }

  /// Completes all of them. Returns whether all are complete, after a message for each that is not.
  bool finish() {
    bool complete = finish_standard_output();
    for (const auto& file : files_) complete = finish_file(*file) && complete;
    return complete;
  }

 private:
  bool finish_standard_output() {
    const int error = standard_output_.finish();
    // A reader that has gone knows that it has not read everything.
    if (error != 0 && error != EPIPE) {
      print_message("error", "standard output: " + std::generic_category().message(error));
    }
    return error == 0;
  }

  static bool finish_file(OutputFile& file) {
    try {
      file.commit();
    } catch (const OutputError& error) {
      print_message("error", error.what());
      return false;
    }
    return true;
  }

  StandardOutput standard_output_;
  std::vector<std::unique_ptr<OutputFile>> files_;
};

void run_extensions(const Options& options, Report& report) {
  if (options.extensions.empty()) return run_extension(default_extension(), report.record());
  for (const std::string& path : options.extensions) run_extension(path, report.record());
}

ExitStatus write_report(const Options& options) {
  set_logging(options);
  ReportFacts& facts = report_facts();
  facts.written_at = report_time();
  Destinations destinations(options);
  const int default_width = destinations.is_terminal() ? terminal_width() : DEFAULT_WIDTH;
  facts.line_width = options.width.value_or(default_width);

  const RecordOptions how = record_options(options, facts.line_width);
  Collapser collapser;
  read_findings(options, collapser);
  Report report(collapser, how);
  facts.findings_read = collapser.findings();
  facts.nodes_seen = collapser.node_names().size();
  facts.unknown_definitions = report.unknown_definitions();
  facts.unknown_based_on = report.unknown_based_on();

  try {
    run_extensions(options, report);
  } catch (...) {
    destinations.abandon();
    throw;
  }
  if (!destinations.finish()) return NO_REPORT;
  return report.failed() ? FAILED : PASSED;
}

ExitStatus run(int argc, const char* const* argv) {
  const auto request = parse_options(argc, argv, isatty(STDIN_FILENO) == 1);
  if (const auto* options = std::get_if<Options>(&request)) return write_report(*options);
  StandardOutput output;
  output.stream() << std::get<Information>(request).text;
  return output.finish() == 0 ? PASSED : NO_REPORT;
}

[[noreturn]] void end_after_terminate() {
  DescriptorBuffer::drain_all();
  std::abort();
}

}  // namespace
}  // namespace vond::standalone

int main(int argc, char** argv) {
  using namespace vond::standalone;
  occupy_standard_descriptors();
  // A reader that goes away is an error of one destination, not the end of all of them.
  std::signal(SIGPIPE, SIG_IGN);
  std::set_terminate(end_after_terminate);
  try {
    return run(argc, argv);
  } catch (const UsageError& error) {
    print_message("error", std::string(error.what()) + "; see vond-report --help");
    return BAD_INPUT;
  } catch (const InputError& error) {
    print_message("error", error.what());
    return BAD_INPUT;
  } catch (const std::bad_alloc&) {
    print_message("error", "out of memory");
  } catch (const std::exception& error) {
    print_message("error", error.what());
  }
  return NO_REPORT;
}
