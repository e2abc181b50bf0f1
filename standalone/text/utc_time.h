#pragma once

#include <ctime>
#include <optional>
#include <string_view>

namespace vond::standalone {

/// Returns the time that `text` says as `2025-11-21T04:30:00Z` (RFC 3339, UTC, whole seconds);
/// nothing for any other text and for days and hours that there are not.
std::optional<std::time_t> parse_utc_time(std::string_view text);

}  // namespace vond::standalone
