#pragma once

#include <string>

#include "standalone/libvond_host/report_facts.h"

namespace vond::standalone {

/// Returns the block that begins the report: its title, its time, its inputs and the number of
/// nodes.
std::string header_block(const ReportFacts& facts);

}  // namespace vond::standalone
