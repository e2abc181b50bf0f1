#include "standalone/cli/memory_shortage.h"

#include <iostream>
#include <new>

namespace vond::standalone {
namespace {

std::size_t failures = 0;

[[noreturn]] void count_failure() {
  ++failures;
  throw std::bad_alloc();
}

}  // namespace

void count_failed_allocations() { std::set_new_handler(count_failure); }

std::size_t failed_allocations() { return failures; }

void print_memory_shortage() {
  std::cerr << "vond-report: error: out of memory; the report is not complete\n";
}

}  // namespace vond::standalone
