#include "standalone/cli/input_reading.h"

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

#include "standalone/cli/environment.h"
#include "standalone/cli/message.h"
#include "standalone/cli/progress_line.h"

namespace vond::standalone {
namespace {

/// Returns how many bytes there are to read, 0 when not all inputs are files.
std::uintmax_t total_size(const std::vector<std::string>& inputs) {
  std::uintmax_t total = 0;
  for (const std::string& input : inputs) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(input, error);
    if (error) {
      return 0;
    }
    total += size;
  }
  return total;
}

void print_warnings(const std::vector<std::string>& warnings) {
  for (const std::string& warning : warnings) {
    print_message("warning", warning);
  }
}

void print_rejected_lines(const RejectedLines& rejected) {
  for (const InputError& error : rejected.errors) {
    print_message("error", error.what());
  }
  const std::size_t more = rejected.count - rejected.errors.size();
  if (more != 0) {
    print_message("error", "and " + std::to_string(more) + " more " +
                               (more == 1 ? "line" : "lines") + " that cannot be used");
  }
}

/// Prints what is wrong with inputs as a whole. Throws InputError, in place of the last message,
/// when no input is of any use.
void tell_useless_inputs(const CheckRun& run) {
  std::vector<std::string> complaints;
  for (const std::string& complaint : run.complaints()) {
    if (!complaint.empty()) {
      complaints.push_back(complaint);
    }
  }
  for (const std::string& complaint : complaints) {
    if (run.is_useless() && &complaint == &complaints.back()) {
      throw InputError(complaint);
    }
    print_message("error", complaint);
  }
}

/// The line of progress is erased before anything else is printed.
std::unique_ptr<CheckRun> read_run_with_progress(const RunSources& sources) {
  ProgressLine progress(total_size(sources.findings), errors_go_to_terminal());
  return std::make_unique<CheckRun>(sources, progress);
}

}  // namespace

DefinitionsFile read_definitions_with_messages(const std::string& path) {
  DefinitionsFile file = read_definitions(path);
  print_warnings(file.warnings);
  return file;
}

AcknowledgementsFile read_acknowledgements_with_messages(const std::string& path,
                                                         LongestAcknowledgement longest,
                                                         FaultyLines faulty_lines) {
  AcknowledgementsFile file = read_acknowledgements(path, longest, faulty_lines);
  print_warnings(file.faults);
  return file;
}

std::unique_ptr<CheckRun> read_run_with_messages(const RunSources& sources) {
  std::unique_ptr<CheckRun> run = read_run_with_progress(sources);
  print_warnings(run->warnings());
  print_rejected_lines(run->rejected_lines());
  tell_useless_inputs(*run);
  return run;
}

}  // namespace vond::standalone
