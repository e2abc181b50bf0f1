#pragma once

#include <string>

namespace vond::standalone {

/// Has messages and notices sent to the system log from now on.
void use_system_log();

/// Writes `vond-report: KIND: MESSAGE` to standard error, and `KIND: MESSAGE` to the system log if
/// that is used. KIND is "error" or "warning". Messages hold file names and what
/// extensions say, so they are made harmless here.
void print_message(const std::string& kind, const std::string& message);

/// Tells the system log alone, if that is used. The text is to be harmless.
void log_notice(const std::string& text);

/// Writes the text of an error as print_message() does, with as little memory as can be.
void print_plain_error(const char* message);

}  // namespace vond::standalone
