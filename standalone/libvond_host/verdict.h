#pragma once

#include <string>

#include "standalone/libvond_host/report_block.h"
#include "standalone/libvond_host/report_facts.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// Adds a line of `lead`, PASS or FAIL, and what a reader of that word alone would miss.
void add_verdict(const std::string& lead, const ReportFacts& facts,
                 const postprocessor::PostprocessorExtensionData& data, ReportBlock& block);

}  // namespace vond::standalone
