#pragma once

#include "standalone/facts/report_facts.h"
#include "vond/host_api.h"

namespace vond::standalone {

/// Returns the facts of the report that this process is about to write; the program fills them
/// before it runs extensions. They are the process's because a header is asked for without a
/// record.
VOND_HOST_API ReportFacts& report_facts();

}  // namespace vond::standalone
