#pragma once

#include <string>

#include "vond/log/output_log.h"

namespace vond::standalone {

/// Writes a rule as it stands between the parts of a report.
void write_rule();

void write_empty_line();

/// Writes a line, wrapped to `width` (in terminal columns, 0 or less for no wrapping), with
/// `indent` before what is broken off. The line end is outside of the colour.
void write_line(log::OutputLog::Colors color, const std::string& text, int width,
                const std::string& indent = "    ");

/// As above, for a line that has its breaks already.
void write_unwrapped_line(log::OutputLog::Colors color, const std::string& text);

}  // namespace vond::standalone
