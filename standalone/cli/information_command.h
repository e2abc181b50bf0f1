#pragma once

#include "standalone/cli/exit_status.h"
#include "standalone/cli/options.h"

namespace vond::standalone {

/// Writes a text that was asked for in place of a report to standard output, and returns the status
/// that the program is to end with.
ExitStatus write_information(const Information& information);

}  // namespace vond::standalone
