#pragma once

#include "vond/extension/statement.h"

namespace vond_output_log {

using vond::extension::write;

/// Writes a line end as a statement of its own, as the tree section does behind every text.
inline void write_line_end() { write("\n"); }

}  // namespace vond_output_log
