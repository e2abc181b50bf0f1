#include "standalone/report/collected_parts.h"

#include "standalone/text/utc_time.h"

namespace vond::standalone {

void CollectedParts::begin(const RunBegin& run) {
  ++begins_;
  parts_.insert(parts_.end(), run.parts.begin(), run.parts.end());
  oldest_ = earliest(oldest_, run.written_at);
}

void CollectedParts::end(const RunEnd& run) {
  ++ends_;
  findings_of_ends_ += run.findings;
  lines_rejected_ += run.lines_rejected;
  has_incomplete_end_ = has_incomplete_end_ || !run.is_complete;
}

bool CollectedParts::is_cut_off() const {
  const bool is_raw = begins_ == 0 && ends_ == 0;
  return !is_raw && (begins_ != ends_ || findings_ != findings_of_ends_ || has_incomplete_end_);
}

}  // namespace vond::standalone
