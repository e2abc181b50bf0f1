#include "standalone/cli/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>

#include "standalone/cli/crash_signals.h"
#include "standalone/cli/early_exits.h"
#include "standalone/cli/exit_status.h"
#include "standalone/cli/memory_shortage.h"
#include "standalone/cli/message.h"
#include "standalone/cli/output/descriptor_buffer.h"
#include "standalone/cli/output/ending_signals.h"
#include "standalone/cli/output/unfinished_file.h"
#include "standalone/cli/running_extension.h"

namespace vond::standalone {
namespace {

/// Makes sure that descriptors 0 to 2 are open, so that no file opened later takes the place of a
/// closed standard stream and gets text that was meant for it.
void occupy_standard_descriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) != -1 || errno != EBADF) {
      continue;
    }
    // The lowest free number is taken, which is this one. It is opened the wrong way round, so that
    // reading and writing still fail.
    const int flags = descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    if (::open("/dev/null", flags) != descriptor) {
      return;
    }
  }
}

extern "C" void end_after_signal(int signal) {
  UnfinishedFile::remove_all();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void handle_ending_signals() {
  for (const int signal : ENDING_SIGNALS) {
    // What the caller has the program ignore, as nohup does, stays ignored.
    if (std::signal(signal, end_after_signal) == SIG_IGN) {
      std::signal(signal, SIG_IGN);
    }
  }
}

void print_sudden_end(const std::string& reason) {
  const std::string extension = RunningExtension::name();
  print_message("error", (extension.empty() ? "the program" : extension + ": the extension") +
                             " ended in std::terminate" + reason + "; the report is not complete");
}

/// Ends the process after an exception that nobody could catch, as one in the middle of writing a
/// statement: with what has been written so far.
[[noreturn]] void end_after_terminate() {
  DescriptorBuffer::drain_all();
  UnfinishedFile::remove_all();
  try {
    if (std::current_exception()) {
      std::rethrow_exception(std::current_exception());
    }
    print_sudden_end("");
  } catch (const std::bad_alloc&) {
    print_memory_shortage();
    std::_Exit(NO_REPORT);
  } catch (const std::exception& error) {
    print_sudden_end(std::string(": ") + error.what());
  } catch (...) {
    print_sudden_end("");
  }
  let_abort_be_silent();
  std::abort();
}

}  // namespace

void prepare_process() {
  occupy_standard_descriptors();
  // A reader that goes away and a limit of file sizes are errors of one destination, not the end of
  // all of them.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  handle_ending_signals();
  count_failed_allocations();
  std::set_terminate(end_after_terminate);
  tell_of_crashes();
  refuse_early_exits();
}

}  // namespace vond::standalone
