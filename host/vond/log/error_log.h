#pragma once

#include <syslog.h>

#include <iostream>
#include <locale>
#include <sstream>
#include <string>

#include "vond/host_api.h"

namespace vond::log {

/// The most detailed priority still reported, in the numbering of syslog(3).
VOND_HOST_API extern int LOG_LEVEL;

/// 0: reports go to standard error; any other value: to the system log.
VOND_HOST_API extern int LOG_OUTPUT;

/// A statement of the error log: collects a report and emits it when it is destroyed.
class ErrorLog {
 public:
  /// `priority` is one of syslog(3), 3 for an error. Where the report comes from is accepted
  /// and not written, on purpose: a report is its text alone.
  ErrorLog(const char* /*file*/, const char* /*function*/, unsigned int /*line*/, int priority)
      : level(priority) {
    // Numbers must read the same whatever locale the host has set; to look costs less than to set.
    if (text.getloc() != std::locale::classic()) {
      text.imbue(std::locale::classic());
    }
  }

  ErrorLog(const ErrorLog&) = delete;
  ErrorLog& operator=(const ErrorLog&) = delete;

  /// Emits the report, an empty one too. An exception in here ends the program.
  ~ErrorLog() {
    if (level > LOG_LEVEL) {
      return;
    }
    if (LOG_OUTPUT == 0) {
      std::cerr << text.str() + "\n";
    } else {
      syslog(level, "%s\n", text.str().c_str());
    }
  }

  /// Returns the stream that takes the report; it lives as long as the statement.
  std::stringstream& stream() { return text; }

 private:
  std::stringstream text;
  int level;
};

}  // namespace vond::log
