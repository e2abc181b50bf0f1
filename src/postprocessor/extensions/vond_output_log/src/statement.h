#pragma once

#include <string>

#include "vond/log/output_log.h"

namespace vond_output_log {

/// Writes one statement without colour; an empty text reaches no destination.
inline void write(const std::string& text) {
  vond::log::OutputLog(vond::log::OutputLog::NONE) << text;
}

}  // namespace vond_output_log
