#pragma once

#include <array>
#include <cstdint>

#include "standalone/model/finding.h"

namespace vond::standalone {

/// Remembers which issue the findings of a wording belong to, by the number that their reader gives
/// to wordings. Only the last ones, each in the place that its number gives it.
class KnownWordings {
 public:
  /// Returns the issue of `finding`: the one that was found for its wording before, else what
  /// `find_issue()` returns.
  template <typename FindIssue>
  std::uint32_t issue_of(const Finding& finding, const FindIssue& find_issue) {
    const std::uint64_t number = finding.wording_number;
    if (number == Finding::UNKNOWN_WORDING) {
      return find_issue();
    }
    Entry& entry = entries_[number % entries_.size()];
    if (entry.wording_number != number) {
      entry = {number, find_issue()};
    }
    return entry.issue;
  }

 private:
  struct Entry {
    std::uint64_t wording_number = Finding::UNKNOWN_WORDING;
    std::uint32_t issue = 0;
  };

  std::array<Entry, 1024> entries_{};
};

}  // namespace vond::standalone
