#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "standalone/model/wording.h"

namespace vond::standalone {

/// One analysis output as an input line gives it, checked and made harmless. The views live until
/// the reader goes on.
struct Finding {
  /// Its lists are in input order.
  Wording wording;
  /// In input order; a name may stand more than once.
  std::vector<std::string_view> nodes;
  std::vector<int> row_ids;
  /// Findings of one reader that have the same number, unless it is UNKNOWN_WORDING, have the same
  /// wording. Readers do not know of each other's numbers.
  std::uint64_t wording_number = UNKNOWN_WORDING;

  static constexpr std::uint64_t UNKNOWN_WORDING = 0;
};

}  // namespace vond::standalone
