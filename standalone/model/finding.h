#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
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
  /// How many findings it stands for. 0 is more of a finding that has a count already.
  std::uint64_t count = 1;
  /// When the first of them was seen, where that is known.
  std::optional<std::time_t> first_seen = std::nullopt;
  /// Findings of one reader that have the same number, unless it is UNKNOWN_WORDING, have the same
  /// wording. Readers do not know of each other's numbers.
  std::uint64_t wording_number = UNKNOWN_WORDING;
  /// Findings of one reader that have the same number, unless it is UNKNOWN_PATTERN, have the same
  /// wording but for the values of message and remedy, whose pattern is the same.
  std::uint64_t pattern_number = UNKNOWN_PATTERN;
  /// With a pattern number: the values of the pattern, as TextPattern gives them for message and
  /// remedy.
  std::vector<std::string_view> values = {};

  static constexpr std::uint64_t UNKNOWN_WORDING = 0;
  static constexpr std::uint64_t UNKNOWN_PATTERN = 0;
};

}  // namespace vond::standalone
