#pragma once

#include "standalone/libvond_host/report_block.h"
#include "standalone/libvond_host/report_facts.h"

namespace vond::standalone {

/// Returns the block that tells what was read, and what a reader must know before trusting the
/// report.
ReportBlock validation_block(const ReportFacts& facts, int width);

}  // namespace vond::standalone
