#include "standalone/acknowledged/acknowledgement_coverage.h"

#include <algorithm>

namespace vond::standalone {

AcknowledgementCoverage::AcknowledgementCoverage(const std::vector<Acknowledgement>& entries,
                                                 std::time_t at)
    : entries_(entries) {
  for (std::size_t number = 0; number < entries.size(); ++number) {
    const Acknowledgement& entry = entries[number];
    (entry.holds_at(at) ? holding_ : expired_)[entry.id].push_back(number);
    if (entry.holds_at(at) && entry.with_observations) {
      with_observations_.push_back(&entry);
    }
  }
}

const AcknowledgementCoverage::Entries& AcknowledgementCoverage::find(const EntriesById& entries,
                                                                      std::string_view id) {
  static const Entries none;
  const auto found = entries.find(id);
  return found == entries.end() ? none : found->second;
}

void AcknowledgementCoverage::add_diagnosis(std::string_view id, int severity,
                                            std::string_view node,
                                            const std::vector<std::string_view>& based_on) {
  for (const std::size_t number : holding(id)) {
    const Acknowledgement& entry = entries_[number];
    if (!entry.with_observations || !entry.covers(severity, node)) {
      continue;
    }
    for (const std::string_view observation : based_on) {
      LimitByNode& limits = observations_.try_emplace(std::string(observation)).first->second;
      int& limit = limits.try_emplace(std::string(node), entry.up_to).first->second;
      limit = std::max(limit, entry.up_to);
    }
  }
}

bool AcknowledgementCoverage::covers(std::string_view id, int severity,
                                     std::string_view node) const {
  const Entries& entries = holding(id);
  return std::any_of(entries.begin(), entries.end(),
                     [&](std::size_t number) { return entries_[number].covers(severity, node); });
}

bool AcknowledgementCoverage::covers_with_diagnosis(std::string_view id, int severity,
                                                    std::string_view node) const {
  const auto limits = observations_.find(id);
  if (limits == observations_.end()) {
    return false;
  }
  const auto limit = limits->second.find(node);
  return limit != limits->second.end() && severity <= limit->second;
}

bool AcknowledgementCoverage::may_cover_with_diagnosis(int severity, std::string_view node) const {
  return std::any_of(with_observations_.begin(), with_observations_.end(),
                     [&](const Acknowledgement* entry) { return entry->covers(severity, node); });
}

}  // namespace vond::standalone
