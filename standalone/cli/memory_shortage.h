#pragma once

#include <cstddef>

/// Memory that runs out: no report may be cut short by it without a message.
namespace vond::standalone {

/// Has every allocation that fails counted from now on.
void count_failed_allocations();

/// Returns how often memory was asked for in vain.
std::size_t failed_allocations();

/// Takes no memory itself.
void print_memory_shortage();

}  // namespace vond::standalone
