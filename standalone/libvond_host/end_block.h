#pragma once

#include "standalone/libvond_host/report_block.h"
#include "standalone/libvond_host/report_facts.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// Returns the block that ends the report and repeats the verdict.
ReportBlock end_block(const ReportFacts& facts,
                      const postprocessor::PostprocessorExtensionData& data);

}  // namespace vond::standalone
