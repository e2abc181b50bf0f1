#pragma once

#include <string>

#include "vond/log/output_log.h"

namespace vond_output_log {

/// Writes one statement without colour; an empty text reaches no destination.
inline void write(const std::string& text) {
  vond::log::OutputLog(vond::log::OutputLog::NONE) << text;
}

/// Writes a line end as a statement of its own, as the tree section does behind every text.
inline void write_line_end() { write("\n"); }

}  // namespace vond_output_log
