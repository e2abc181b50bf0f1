#pragma once

#include "standalone/facts/report_facts.h"

namespace vond::standalone {

/// Writes what is acknowledged: how many issues on how many nodes, and the entries that cover them,
/// those that end first before the others; entries that have expired while what they covered is
/// there; entries that cover nothing. Writes nothing when nothing may be acknowledged. `width` is
/// in terminal columns, 0 or less for no wrapping.
void write_acknowledged(const ReportFacts& facts, int width);

}  // namespace vond::standalone
