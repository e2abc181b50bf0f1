#include "standalone/acknowledged/acknowledgement_coverage.h"

#include <algorithm>

namespace vond::standalone {

void AcknowledgementCoverage::Index::add(std::size_t number, const Acknowledgement& entry) {
  OfId& of_id = of_ids_[entry.id];
  if (entry.is_everywhere) {
    of_id.everywhere.push_back(number);
  }
  for (const std::string& node : entry.nodes) {
    of_id.of_nodes[node].push_back(number);
  }
}

AcknowledgementCoverage::AcknowledgementCoverage(const std::vector<Acknowledgement>& entries,
                                                 std::time_t at)
    : entries_(entries) {
  for (std::size_t number = 0; number < entries.size(); ++number) {
    const Acknowledgement& entry = entries[number];
    (entry.holds_at(at) ? holding_ : expired_).add(number, entry);
    if (entry.holds_at(at) && entry.with_observations) {
      note_with_observations(entry);
    }
  }
}

void AcknowledgementCoverage::note_with_observations(const Acknowledgement& entry) {
  if (entry.is_everywhere) {
    everywhere_with_observations_ = std::max(everywhere_with_observations_, entry.up_to);
  }
  for (const std::string& node : entry.nodes) {
    int& limit = with_observations_.try_emplace(node, NOTHING_COVERED).first->second;
    limit = std::max(limit, entry.up_to);
  }
}

void AcknowledgementCoverage::add_diagnosis(std::string_view id, int severity,
                                            std::string_view node,
                                            const std::vector<std::string_view>& based_on) {
  for_each_holding(id, severity, node, [&](std::size_t number) {
    const Acknowledgement& entry = entries_[number];
    if (!entry.with_observations) {
      return;
    }
    for (const std::string_view observation : based_on) {
      LimitByNode& limits = observations_.try_emplace(std::string(observation)).first->second;
      int& limit = limits.try_emplace(std::string(node), entry.up_to).first->second;
      limit = std::max(limit, entry.up_to);
    }
  });
}

bool AcknowledgementCoverage::covers(std::string_view id, int severity,
                                     std::string_view node) const {
  bool is_covered = false;
  for_each_holding(id, severity, node, [&](std::size_t /*number*/) { is_covered = true; });
  return is_covered;
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
  if (severity <= everywhere_with_observations_) {
    return true;
  }
  const auto limit = with_observations_.find(node);
  return limit != with_observations_.end() && severity <= limit->second;
}

}  // namespace vond::standalone
