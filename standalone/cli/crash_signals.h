#pragma once

namespace vond::standalone {

/// From now on a crash of the process is told on standard error, with the extension in charge and
/// the signal, and leaves no unfinished file behind. The signal then takes the course that it would
/// have taken. An overflow of the stack is told for the thread that calls this.
void tell_of_crashes();

/// Has std::abort() tell nothing, for who has told already.
void let_abort_be_silent();

}  // namespace vond::standalone
