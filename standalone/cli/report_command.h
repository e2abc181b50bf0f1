#pragma once

#include "standalone/cli/exit_status.h"
#include "standalone/cli/options.h"

namespace vond::standalone {

/// Reads the inputs, writes the report, and returns the status that the program is to end with.
/// Prints messages about what does not keep the report from being written. Throws UsageError,
/// InputError, OutputError, ExtensionError and std::bad_alloc for what does.
ExitStatus write_report(const Options& options);

}  // namespace vond::standalone
