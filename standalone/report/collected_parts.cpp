#include "standalone/report/collected_parts.h"

#include <algorithm>

namespace vond::standalone {

void CollectedParts::begin(const RunBegin& run) { begins_.push_back(run); }

void CollectedParts::end(const RunEnd& run) {
  ++ends_;
  findings_of_ends_ += run.findings;
  examined_of_ends_ += run.examined;
  lines_rejected_ += run.lines_rejected;
  has_incomplete_end_ = has_incomplete_end_ || !run.is_complete;
}

bool CollectedParts::is_cut_off() const {
  const bool is_raw = begins_.empty() && ends_ == 0;
  return !is_raw && (begins_.size() != ends_ || findings_ != findings_of_ends_ ||
                     examined_ < examined_of_ends_ || has_incomplete_end_);
}

std::optional<std::time_t> CollectedParts::oldest() const {
  const auto oldest = std::min_element(
      begins_.begin(), begins_.end(),
      [](const RunBegin& a, const RunBegin& b) { return a.written_at < b.written_at; });
  return oldest == begins_.end() ? std::nullopt : std::optional(oldest->written_at);
}

}  // namespace vond::standalone
