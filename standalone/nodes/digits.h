#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Arithmetic on numbers as names hold them: decimal digits, as many as there are, leading zeros
/// included.
namespace vond::standalone {

bool has_leading_zero(std::string_view digits);

/// Returns high - low, or `limit` when that is less; nothing when low is the higher one. The limit
/// is at most 10^17.
std::optional<std::uint64_t> limited_difference(std::string_view high, std::string_view low,
                                                std::uint64_t limit);

/// Adds `summand`; leading zeros stay where there is room for them.
void add_to_digits(std::uint64_t summand, std::string& digits);

}  // namespace vond::standalone
