#pragma once

#include "standalone/facts/report_facts.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// Writes what a reader must know before trusting a report; ends with an empty line.
void write_validation(const ReportFacts& facts,
                      const postprocessor::PostprocessorExtensionData& data);

}  // namespace vond::standalone
