#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vond/postprocessor/severity.h"

namespace vond::standalone {

/// The ends of the severity scale, both inclusive.
inline constexpr int LOWEST_SEVERITY = 0;
inline constexpr int HIGHEST_SEVERITY = 100;

/// A band of the severity scale, as far as masks need it.
struct SeverityBandBits {
  int upper_bound;
  postprocessor::Severity severity;
};

/// Returns the band that a severity on the scale lies in.
SeverityBandBits band_of(int severity);

/// Returns the names of the severity bands, the mildest first.
const std::vector<std::string_view>& band_names();

/// Returns the upper bound of the band `name`, which is what a band name stands for, or nothing
/// when there is no such band.
std::optional<int> severity_of_band(std::string_view name);

/// Reads a severity as a person types it: a whole number on the scale in decimal digits, or the
/// name of a band. Returns nothing when `text` is neither.
std::optional<int> parse_severity(std::string_view text);

/// Returns what parse_severity() takes, for messages: `a whole number from 0 to 100 or one of "…"`.
std::string severity_expectation();

}  // namespace vond::standalone
