#include "standalone/cli/message.h"

#include <syslog.h>

#include <iostream>

#include "standalone/text/harmless_text.h"

namespace vond::standalone {
namespace {

bool system_log_is_used = false;

}  // namespace

void use_system_log() {
  openlog("vond-report", LOG_PID, LOG_USER);
  system_log_is_used = true;
}

void print_message(const std::string& kind, const std::string& message) {
  const std::string text = kind + ": " + harmless(message);
  std::cerr << "vond-report: " + text + "\n";
  if (system_log_is_used) {
    syslog(kind == "error" ? LOG_ERR : LOG_WARNING, "%s", text.c_str());
  }
}

void log_notice(const std::string& text) {
  if (system_log_is_used) {
    syslog(LOG_NOTICE, "%s", text.c_str());
  }
}

void print_plain_error(const char* message) {
  std::cerr << "vond-report: error: " << message << "\n";
  if (system_log_is_used) {
    syslog(LOG_ERR, "error: %s", message);
  }
}

}  // namespace vond::standalone
