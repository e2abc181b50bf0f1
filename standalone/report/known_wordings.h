#pragma once

#include <array>
#include <cstdint>
#include <utility>

#include "standalone/model/finding.h"

namespace vond::standalone {

/// Remembers what was found for the findings of a wording, by the number that their reader gives to
/// wordings. Only the last ones, each in the place that its number gives it.
template <typename Found>
class KnownWordings {
 public:
  /// Returns what is known of the finding's wording, null when nothing is. Until the next
  /// remember().
  const Found* find(const Finding& finding) const {
    const Entry& entry = entries_[finding.wording_number % entries_.size()];
    const bool is_known = finding.wording_number != Finding::UNKNOWN_WORDING &&
                          entry.wording_number == finding.wording_number;
    return is_known ? &entry.found : nullptr;
  }

  void remember(const Finding& finding, Found found) {
    entries_[finding.wording_number % entries_.size()] = {finding.wording_number, std::move(found)};
  }

 private:
  struct Entry {
    std::uint64_t wording_number = Finding::UNKNOWN_WORDING;
    Found found = {};
  };

  std::array<Entry, 1024> entries_{};
};

}  // namespace vond::standalone
