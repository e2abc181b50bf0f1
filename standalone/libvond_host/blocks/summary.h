#pragma once

#include "standalone/facts/report_facts.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// Writes the verdict, the worst issues of every band, and the definitions that fail; ends with a
/// rule.
void write_summary(const ReportFacts& facts, const postprocessor::PostprocessorExtensionData& data);

/// Writes the block that ends a report: what the summary says of the worst band that fails once
/// more, for whoever sees the end first. A rule, at most 22 lines at usual widths, the last line.
void write_end(const ReportFacts& facts, const postprocessor::PostprocessorExtensionData& data);

}  // namespace vond::standalone
