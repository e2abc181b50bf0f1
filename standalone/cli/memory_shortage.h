#pragma once

#include <cstddef>

/// Memory that runs out: no report may be cut short by it without a message.
namespace vond::standalone {

/// Has every allocation that fails counted from now on.
void count_failed_allocations();

/// Returns how often memory was asked for in vain.
std::size_t failed_allocations();

/// Has `react` called, which must take no memory, at each allocation that fails from now on;
/// nothing for a null pointer.
void on_failed_allocation(void (*react)() noexcept);

/// Takes no memory itself.
void print_memory_shortage();

}  // namespace vond::standalone
