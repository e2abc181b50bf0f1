#pragma once

#include <cstddef>
#include <ctime>

#include "standalone/report/facts_of_run.h"

namespace vond::test {

class NoProgress : public standalone::ReadingProgress {
 public:
  void advance(std::size_t /*bytes_read*/, std::size_t /*findings*/) override {}
};

/// Returns the facts of a run, whose inputs are read and may go. It takes no time unless `sources`
/// have one.
inline standalone::ReportFacts read_facts(standalone::RunSources sources,
                                          const standalone::RecordOptions& options = {},
                                          std::time_t written_at = 1763699400) {
  if (sources.time == 0) {
    sources.time = written_at;
  }
  NoProgress progress;
  standalone::CheckRun run(sources, progress);
  const standalone::ReportRecord record(run.collapser(), options);
  return facts_of_run(run, record, written_at);
}

}  // namespace vond::test
