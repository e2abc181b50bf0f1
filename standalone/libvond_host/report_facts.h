#pragma once

#include <cstddef>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "vond/host_api.h"

namespace vond::standalone {

/// What the host's report blocks tell beyond the record: where the report comes from and how far it
/// can be trusted. Lists are sorted, each name in them stands once.
struct ReportFacts {
  /// The inputs as the user named them, in reading order.
  std::vector<std::string> inputs;
  /// The report's time.
  std::time_t written_at = 0;
  /// The report's width in terminal columns; 0 or less means no wrapping.
  int line_width = 0;
  std::size_t findings_read = 0;
  /// Lines that could not be used and are left out.
  std::size_t lines_rejected = 0;
  /// Number of distinct nodes that findings name.
  std::size_t nodes_seen = 0;
  /// Names that findings use and the definitions file lacks.
  std::vector<std::string> unknown_definitions;
  /// Ids that a `based_on` names and no observation has.
  std::vector<std::string> unknown_based_on;

  /// Which nodes were looked at, where that is known.
  struct Examination {
    std::size_t nodes_examined = 0;
    /// Nodes that findings name although they were not examined.
    std::vector<std::string> not_examined_with_findings;
  };
  std::optional<Examination> examination;
  /// Nodes that should have been examined and were not.
  std::vector<std::string> expected_and_not_examined;
};

/// Returns the facts of the report that this process is about to write; the program fills them
/// before it runs extensions. They are the process's because a header is asked for without a
/// record.
VOND_HOST_API ReportFacts& report_facts();

}  // namespace vond::standalone
