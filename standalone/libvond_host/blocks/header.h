#pragma once

#include <string>

#include "standalone/facts/report_facts.h"

namespace vond::standalone {

/// Returns the lines that a report begins with: the verdict, when and from what it was written.
std::string format_header(const ReportFacts& facts);

}  // namespace vond::standalone
