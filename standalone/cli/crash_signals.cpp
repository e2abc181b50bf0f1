#include "standalone/cli/crash_signals.h"

#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstring>

#include "standalone/cli/output/descriptor_buffer.h"
#include "standalone/cli/output/unfinished_file.h"
#include "standalone/cli/running_extension.h"

namespace vond::standalone {
namespace {

struct CrashSignal {
  int number;
  const char* name;
};
constexpr CrashSignal CRASH_SIGNALS[] = {
    {SIGABRT, "SIGABRT (aborted)"},
    {SIGBUS, "SIGBUS (bus error)"},
    {SIGFPE, "SIGFPE (arithmetic error)"},
    {SIGILL, "SIGILL (illegal instruction)"},
    {SIGSEGV, "SIGSEGV (invalid access to memory)"},
    {SIGSYS, "SIGSYS (bad system call)"},
    {SIGTRAP, "SIGTRAP (trap)"},
};
constexpr std::size_t SIGNAL_COUNT = std::size(CRASH_SIGNALS);

/// What happened at each signal before, as a sanitizer has it reported.
struct sigaction actions_before[SIGNAL_COUNT];

/// A stack that has overflowed is no place for a handler.
constexpr std::size_t STACK_SIZE = 64UL * 1024;
alignas(std::max_align_t) char handler_stack[STACK_SIZE];

void write_text(const char* text) {
  std::size_t length = std::strlen(text);
  while (length > 0) {
    const ssize_t count = ::write(STDERR_FILENO, text, length);
    if (count <= 0) {
      return;
    }
    text += count;
    length -= static_cast<std::size_t>(count);
  }
}

void write_message(const char* signal_name) {
  const char* const extension = RunningExtension::name();
  write_text("vond-report: error: ");
  write_text(extension);
  write_text(*extension != '\0' ? ": the extension crashed: " : "the program crashed: ");
  write_text(signal_name);
  write_text("; the report is not complete\n");
}

const char* name_of(int signal) {
  for (const CrashSignal& crash : CRASH_SIGNALS) {
    if (crash.number == signal) {
      return crash.name;
    }
  }
  return "unknown signal";
}

/// A second crash, in here, takes its course at once.
void restore_actions_before() {
  for (std::size_t i = 0; i < SIGNAL_COUNT; ++i) {
    ::sigaction(CRASH_SIGNALS[i].number, &actions_before[i], nullptr);
  }
}

/// Does only what a handler may. The surest comes first: memory may be in any state.
extern "C" void tell_of_crash(int signal) {
  restore_actions_before();
  UnfinishedFile::remove_all();
  write_message(name_of(signal));
  DescriptorBuffer::drain_all();
  // Waits until the handler is left; the instruction at fault is then not even tried again.
  ::raise(signal);
}

/// A sanitizer may have set one up, which is larger.
void set_up_handler_stack() {
  stack_t stack{};
  if (::sigaltstack(nullptr, &stack) == 0 && (stack.ss_flags & SS_DISABLE) == 0) {
    return;
  }
  stack.ss_sp = handler_stack;
  stack.ss_size = STACK_SIZE;
  stack.ss_flags = 0;
  ::sigaltstack(&stack, nullptr);
}

}  // namespace

void tell_of_crashes() {
  set_up_handler_stack();
  struct sigaction action {};
  action.sa_handler = tell_of_crash;
  action.sa_flags = SA_ONSTACK;
  for (std::size_t i = 0; i < SIGNAL_COUNT; ++i) {
    const int signal = CRASH_SIGNALS[i].number;
    ::sigaction(signal, nullptr, &actions_before[i]);
    // What the caller has the program ignore stays ignored.
    if (actions_before[i].sa_handler != SIG_IGN) {
      ::sigaction(signal, &action, nullptr);
    }
  }
}

void let_abort_be_silent() { std::signal(SIGABRT, SIG_DFL); }

}  // namespace vond::standalone
