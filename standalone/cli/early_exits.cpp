#include "standalone/cli/early_exits.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "standalone/cli/message.h"
#include "standalone/cli/output/descriptor_buffer.h"
#include "standalone/cli/output/unfinished_file.h"
#include "standalone/cli/running_extension.h"

namespace vond::standalone {
namespace {

std::optional<int> allowed_status;

[[noreturn]] void refuse_exit(const std::string& how) {
  DescriptorBuffer::drain_all();
  UnfinishedFile::remove_all();
  std::fflush(nullptr);
  const std::string extension = RunningExtension::name();
  print_message("error", (extension.empty() ? "the program" : extension + ": the extension") +
                             " ended the process with " + how + "; the report is not complete");
  ::_exit(NO_REPORT);
}

void end_with(int status, void* /*unused*/) {
  if (allowed_status != status) {
    refuse_exit("exit(" + std::to_string(status) + ")");
  }
}

void end_quickly() { refuse_exit("quick_exit"); }

}  // namespace

void refuse_early_exits() {
  // Handlers run in the reverse of the order in which they are registered, and so do destructors of
  // static objects: these two run behind everything that extensions leave.
  ::on_exit(end_with, nullptr);
  std::at_quick_exit(end_quickly);
}

ExitStatus allow_exit(ExitStatus status) {
  RunningExtension::recall_last();
  allowed_status = status;
  return status;
}

}  // namespace vond::standalone
