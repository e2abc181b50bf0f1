#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <vector>

#include "standalone/model/finding.h"
#include "standalone/model/string_interner.h"
#include "standalone/report/wording_numbers.h"

namespace vond::standalone {

/// Findings that wait until the last one is read. Memory grows with their wordings, and with each
/// of them by little more than its nodes and row ids.
class HeldFindings {
 public:
  /// All findings must come from one reader.
  void add(const Finding& finding);

  /// Calls `visit` with each finding, in their order, and forgets them. They are as they came, but
  /// that sets are sorted, that patterns have no number, and that wordings have others, which may
  /// stand beside those of the reader. These are good for one release.
  template <typename Visit>
  void release(const Visit& visit) {
    const std::vector<OwnedWording> wordings = wordings_.take();
    Finding finding;
    Ends begin;
    for (const Held& held : findings_) {
      restore(held, wordings[held.wording], begin, finding);
      visit(finding);
      begin = held.ends;
    }
    *this = HeldFindings();
  }

 private:
  /// Where the lists of a finding end, and those of the next one begin.
  struct Ends {
    std::size_t nodes = 0;
    std::size_t row_ids = 0;
  };
  struct Held {
    WordingTable::Number wording;
    Ends ends;
    std::uint64_t count;
    std::optional<std::time_t> first_seen;
  };

  void restore(const Held& held, const OwnedWording& wording, const Ends& begin,
               Finding& finding) const;

  std::vector<Held> findings_;
  WordingNumbers wordings_;
  StringInterner node_names_;
  /// Of all findings, one behind the other.
  std::vector<StringInterner::Id> nodes_;
  std::vector<int> row_ids_;
};

}  // namespace vond::standalone
