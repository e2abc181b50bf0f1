#include "standalone/cli/emergencies.h"

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "standalone/cli/exit_status.h"
#include "standalone/cli/message.h"
#include "standalone/cli/output.h"

namespace vond::standalone {
namespace {

std::size_t failures = 0;

[[noreturn]] void note_lack_of_memory() {
  ++failures;
  throw std::bad_alloc();
}

/// Ends the process after an exception that nobody could catch, as one in the middle of writing a
/// statement: with what has been written so far.
[[noreturn]] void end_after_terminate() {
  DescriptorBuffer::drain_all();
  OutputFile::remove_unfinished();
  try {
    if (std::current_exception()) {
      std::rethrow_exception(std::current_exception());
    }
    print_message("error", "the program cannot go on; the report is not complete");
  } catch (const std::bad_alloc&) {
    print_lack_of_memory();
    std::_Exit(NO_REPORT);
  } catch (const std::exception& error) {
    print_message("error", std::string("the program cannot go on: ") + error.what() +
                               "; the report is not complete");
  } catch (...) {
    print_message("error", "the program cannot go on; the report is not complete");
  }
  std::abort();
}

extern "C" void end_after_signal(int signal) {
  OutputFile::remove_unfinished();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void tidy_up_after_signals() {
  for (const int signal : ENDING_SIGNALS) {
    // What the caller has the program ignore, as nohup does, stays ignored.
    if (std::signal(signal, end_after_signal) == SIG_IGN) {
      std::signal(signal, SIG_IGN);
    }
  }
}

}  // namespace

void prepare_for_emergencies() {
  tidy_up_after_signals();
  std::set_new_handler(note_lack_of_memory);
  std::set_terminate(end_after_terminate);
}

std::size_t failed_allocations() { return failures; }

void print_lack_of_memory() {
  std::cerr << "vond-report: error: out of memory; the report is not complete\n";
}

}  // namespace vond::standalone
