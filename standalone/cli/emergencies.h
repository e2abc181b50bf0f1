#pragma once

#include <cstddef>

/// How the process ends when it cannot go on: with a message, and without output that looks whole.
namespace vond::standalone {

/// Takes care of signals that end the process, of exceptions that nobody can catch and of memory
/// that runs out.
void prepare_for_emergencies();

/// Returns how often memory was asked for in vain since the start.
std::size_t failed_allocations();

/// Takes no memory itself.
void print_lack_of_memory();

}  // namespace vond::standalone
