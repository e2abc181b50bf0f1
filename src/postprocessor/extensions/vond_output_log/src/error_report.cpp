#include "error_report.h"

#include "vond/log/error_log.h"

namespace vond_output_log {

int report_error(const ReportingOperation& operation, const std::exception& error) {
  // Fixed for the same reason as the lines; every one of the operations belongs to this file.
  constexpr char SOURCE_FILE[] = "src/postprocessor/extensions/vond_output_log/src/fwd_output";
  constexpr int ERROR_PRIORITY = 3;
  vond::log::ErrorLog(SOURCE_FILE, operation.name, operation.line, ERROR_PRIORITY).stream()
      << error.what();
  return 1;
}

}  // namespace vond_output_log
