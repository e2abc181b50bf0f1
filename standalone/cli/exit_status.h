#pragma once

namespace vond::standalone {

/// What the program ends with; see the manual page.
enum ExitStatus : int { PASSED = 0, FAILED = 1, BAD_INPUT = 2, NO_REPORT = 3 };

}  // namespace vond::standalone
