#include "detail_header.h"

#include <cstddef>
#include <exception>

#include "error_report.h"

namespace vond_output_log {

int DetailHeader::format(std::string& buffer, int ordinal, const std::string& ordinal_pad,
                         const vond::extension::Issue& issue) const {
  try {
    const std::size_t count = summaries_.count_nodes(*issue);
    // "0 node)", unlike the issue sections, which say "0 nodes)"; that is wanted.
    buffer = prefix_ + std::to_string(ordinal) + "." + ordinal_pad + " " + issue->get_id() +
             " (appears on " + std::to_string(count) + (count > 1 ? " nodes)" : " node)");
  } catch (const std::exception& error) {
    return report_error(FORMAT_FWD_HEADER, error);
  }
  return 0;
}

}  // namespace vond_output_log
