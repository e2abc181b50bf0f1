#pragma once

#include <string>
#include <vector>

#include "standalone/facts/report_facts.h"

namespace vond::standalone {

/// Returns the racks of a file, in its order: the name of a rack, blanks and a node set a line,
/// blank lines and what stands behind a `#` skipped. A rack may have several lines, a node one
/// rack. "-" is standard input. Throws InputError, for a file without a rack, too.
std::vector<ReportFacts::Rack> read_racks(const std::string& path);

}  // namespace vond::standalone
