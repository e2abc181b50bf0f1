#pragma once

#include <vector>

#include "standalone/facts/report_facts.h"
#include "standalone/libvond_host/blocks/severity_bands.h"

namespace vond::standalone {

/// Writes the verdict and why, in its colour: "FAIL, 13 nodes with CRITICAL issues", "UNKNOWN:
/// nothing was looked at", "PASS, 48 of 48 expected nodes were examined"; below it the nodes of the
/// worst band that fails. `width` is in terminal columns, 0 or less for no wrapping.
void write_verdict(const ReportFacts& facts, const std::vector<SeverityBand>& bands, int width);

/// Writes the line that every complete report ends with; it is never wrapped.
void write_last_line(const ReportFacts& facts);

/// Returns the worst band that has issues which contribute to FAIL, null when none has.
const SeverityBand* worst_failing_band(const std::vector<SeverityBand>& bands);

}  // namespace vond::standalone
