#pragma once

#include <bitset>
#include <cstdint>

namespace vond::postprocessor {

/// How bad an issue is. The values are the bits that a severity contributes to a SeverityMask.
enum class Severity : std::uint32_t { INFORMATIONAL = 0, WARNING = 4, CRITICAL = 8 };

/// The two kinds of issues that may be related to each other; ordered by value.
enum class Type : int { DIAGNOSIS = 0, OBSERVATION = 1 };

/// Keys issues and counts: bits 0 and 1 a TypeCode, bits 2 and 3 a Severity, bit 4 FAIL_BIT.
using SeverityMask = std::bitset<5>;

/// Orders masks by their unsigned value.
struct CompareBitset {
  bool operator()(const SeverityMask& left, const SeverityMask& right) const noexcept {
    return left.to_ulong() < right.to_ulong();
  }
};

/// The values of bits 0 and 1 of a SeverityMask.
enum TypeCode : unsigned char {
  DIAGNOSES = 0,
  OBSERVATIONS = 1,
  /// Observation-like: a check could not be made. Listed with the observations.
  MISSING_DATA = 2,
  /// Keys counts only: observations of every kind together.
  ALL_OBSERVATIONS = 3,
};

/// The bit of a SeverityMask that marks issues contributing to FAIL.
inline constexpr unsigned FAIL_BIT = 16;

/// Returns FAIL_BIT when a band that ends at `upper_bound` contributes to FAIL, else 0. Both
/// arguments are on the severity scale, 0 to 100.
constexpr unsigned fail_bit(int upper_bound, int fail_threshold) noexcept {
  return upper_bound >= fail_threshold ? FAIL_BIT : 0U;
}

}  // namespace vond::postprocessor
