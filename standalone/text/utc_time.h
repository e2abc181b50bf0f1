#pragma once

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace vond::standalone {

/// Returns the time that `text` says as `2025-11-21T04:30:00Z` (RFC 3339, UTC, whole seconds);
/// nothing for any other text and for days and hours that there are not.
std::optional<std::time_t> parse_utc_time(std::string_view text);

/// Returns the first second, UTC, of the day that `text` says as `2025-11-21`; nothing for any
/// other text and for days that there are not.
std::optional<std::time_t> parse_utc_date(std::string_view text);

/// Returns the second in which the instant lies that `text` says in any form of RFC 3339: with `Z`
/// or an offset, with or without a fraction, `T` and `Z` in either case, a leap second at the end
/// of a day. Nothing for any other text and for days and hours that there are not.
std::optional<std::time_t> parse_instant(std::string_view text);

/// Returns the time, UTC, in the form that strftime() makes of `format`; "unknown" for a time that
/// no calendar has.
std::string format_utc_time(std::time_t time, const char* format);

/// Returns how long before `now` it was, in seconds; less than 0 for what lies ahead.
inline std::int64_t age_at(std::time_t now, std::time_t time) {
  // Any number may be a file's time; half of the range leaves room for the subtraction.
  constexpr std::time_t LIMIT = std::numeric_limits<std::time_t>::max() / 2;
  return now - std::clamp(time, -LIMIT, LIMIT);
}

/// Returns the earlier one of two times, of which none, one or both are known.
inline std::optional<std::time_t> earliest(std::optional<std::time_t> one,
                                           std::optional<std::time_t> other) {
  return one && other ? std::min(one, other) : (one ? one : other);
}

}  // namespace vond::standalone
