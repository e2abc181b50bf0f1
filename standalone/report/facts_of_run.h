#pragma once

#include <ctime>

#include "standalone/facts/report_facts.h"
#include "standalone/report/check_run.h"
#include "standalone/report/report_record.h"

namespace vond::standalone {

/// Returns what the reading of `run` tells, without its issues: enough for verdict_doubts().
/// `written_at` is the report's time.
ReportFacts facts_of_reading(const CheckRun& run, std::time_t written_at);

/// Returns what the host's report blocks tell of `run`, from which `record` was made. `written_at`
/// is the report's time.
ReportFacts facts_of_run(const CheckRun& run, const ReportRecord& record, std::time_t written_at);

}  // namespace vond::standalone
