#include "standalone/cli/input.h"

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>

#include "standalone/cli/message.h"
#include "standalone/input/input_error.h"

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

}  // namespace

Input::Input(const Options& options) {
  for (const std::string& node : options.examined) {
    examination_.add_examined(node);
  }
  for (const std::string& node : options.expected) {
    examination_.add_expected(node);
  }
  read(options);
}

void Input::finding(const Finding& finding) {
  collapser_.add(finding);
  progress_->update(reader_->bytes_read(), collapser_.findings());
}

void Input::examined(const std::vector<std::string_view>& nodes) {
  examination_.set_known();
  for (const std::string_view node : nodes) {
    examination_.add_examined(node);
  }
}

void Input::read(const Options& options) {
  FindingsReader reader(*this, {.keep_going = options.keep_going,
                                .definitions_are_paths = !options.definitions.has_value()});
  {
    Progress progress(total_size(options.inputs), isatty(STDERR_FILENO) == 1);
    reader_ = &reader;
    progress_ = &progress;
    for (const std::string& path : options.inputs) {
      reader.read(path);
    }
  }
  for (const std::string& warning : reader.warnings()) {
    print_message("warning", warning);
  }
  print_rejected(reader.rejected());
}

void Input::print_rejected(const RejectedLines& rejected) {
  lines_rejected_ = rejected.count;
  for (const InputError& error : rejected.errors) {
    print_message("error", error.what());
  }
  const std::size_t more = rejected.count - rejected.errors.size();
  if (more != 0) {
    print_message("error", "and " + std::to_string(more) + " more " +
                               (more == 1 ? "line" : "lines") + " that cannot be used");
  }
}

}  // namespace vond::standalone
