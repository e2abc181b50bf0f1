#include "standalone/cli/memory_shortage.h"

#include <new>

#include "standalone/cli/message.h"

namespace vond::standalone {
namespace {

std::size_t failures = 0;
void (*reaction)() noexcept = nullptr;

[[noreturn]] void count_failure() {
  ++failures;
  if (reaction != nullptr) {
    reaction();
  }
  throw std::bad_alloc();
}

}  // namespace

void count_failed_allocations() { std::set_new_handler(count_failure); }

std::size_t failed_allocations() { return failures; }

void on_failed_allocation(void (*react)() noexcept) { reaction = react; }

void print_memory_shortage() { print_plain_error("out of memory; the report is not complete"); }

}  // namespace vond::standalone
