#pragma once

#include "standalone/cli/exit_status.h"

/// Extensions that end the process while the report is being written.
namespace vond::standalone {

/// From now on a call of std::exit() or std::quick_exit() that comes before the end of main, or of
/// a static object's destructor behind it, is told as the fault of the extension in charge. The
/// text so far is written, no unfinished file stays behind, and the process ends with NO_REPORT.
/// To be called before any extension is loaded.
void refuse_early_exits();

/// Returns `status`, which main is to return at once: the one exit that is not refused.
ExitStatus allow_exit(ExitStatus status);

}  // namespace vond::standalone
