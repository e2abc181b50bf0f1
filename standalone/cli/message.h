#pragma once

#include <string>

namespace vond::standalone {

/// Writes `vond-report: KIND: MESSAGE` to standard error. Messages hold file names and what
/// extensions say, so they are made harmless here.
void print_message(const std::string& kind, const std::string& message);

}  // namespace vond::standalone
