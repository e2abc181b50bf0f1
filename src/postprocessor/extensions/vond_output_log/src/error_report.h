#pragma once

#include <exception>

namespace vond_output_log {

/// An operation of the tree section that catches exceptions, and the line it reports them from.
struct ReportingOperation {
  const char* name;
  unsigned line;
};

// Readers of logs know the places by these numbers, so they stay what they are wherever the code
// moves to.
inline constexpr ReportingOperation FORMAT_FWD_ISSUE_NUM{"format_fwd_issue_num", 374};
inline constexpr ReportingOperation FORMAT_FWD_HEADER{"format_fwd_header", 441};
inline constexpr ReportingOperation FORMAT_FWD_SEGMENT{"format_fwd_segment", 555};
inline constexpr ReportingOperation GET_DETAILS_BY_SEVERITY{"get_details_by_severity", 582};

/// Reports an exception in the error log, as an error. Returns 1, the result of an operation that
/// failed.
int report_error(const ReportingOperation& operation, const std::exception& error);

}  // namespace vond_output_log
