#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "vond/postprocessor/severity.h"

namespace vond::standalone {

/// One analysis output as an input line gives it, checked and made harmless. The views live until
/// the reader goes on.
struct Finding {
  postprocessor::TypeCode type = postprocessor::OBSERVATIONS;
  /// Never empty.
  std::string_view id;
  /// On the severity scale, 0 to 100.
  int severity = 0;
  std::string_view category;
  std::string_view message;
  std::string_view remedy;
  /// In input order; a name may stand more than once.
  std::vector<std::string_view> nodes;
  std::vector<int> row_ids;
  /// Full names of framework definitions, never empty ones, in input order.
  std::vector<std::string_view> definitions;
  /// Ids of observations, in input order.
  std::vector<std::string_view> based_on;
  /// Findings of one reader that have the same number, unless it is UNKNOWN_WORDING, differ in
  /// nodes and row ids alone.
  std::uint64_t wording = UNKNOWN_WORDING;

  static constexpr std::uint64_t UNKNOWN_WORDING = 0;
};

}  // namespace vond::standalone
