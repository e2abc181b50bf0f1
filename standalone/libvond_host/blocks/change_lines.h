#pragma once

#include "standalone/facts/report_facts.h"

namespace vond::standalone {

/// Writes what has changed since earlier runs; nothing when there are none to compare with.
void write_changes(const ReportFacts& facts);

}  // namespace vond::standalone
