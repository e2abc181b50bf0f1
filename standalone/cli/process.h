#pragma once

namespace vond::standalone {

/// Prepares the process for its work, before anything else is done. No file takes the place of a
/// closed standard stream. A write to a closed pipe is an error that can be told. No end of the
/// process leaves an output that looks whole and is not: neither a signal
/// nor std::terminate, and neither a crash nor an exit of an extension. Allocations that fail are
/// counted.
void prepare_process();

}  // namespace vond::standalone
