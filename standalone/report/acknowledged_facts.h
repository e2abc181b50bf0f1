#pragma once

#include "standalone/facts/report_facts.h"
#include "standalone/report/check_run.h"

namespace vond::standalone {

/// Adds what is acknowledged in `run` to its facts, which must know who was examined.
void add_facts_of_acknowledged(ReportFacts& facts, const CheckRun& run);

}  // namespace vond::standalone
