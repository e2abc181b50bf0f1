#pragma once

#include <cstdint>
#include <string>

namespace vond::standalone {

/// Returns a time span in its largest whole unit: "3 days". One below 0 is none.
std::string format_duration(std::int64_t seconds);

/// Returns an age in brief: "45 s", "12 min", "6 h", "3 days", "3 days ahead".
std::string format_short_age(std::int64_t age);

/// Returns an age in seconds as people say it, in its largest whole unit: "2 minutes old", or "3
/// days in the future" for an age below 0.
std::string format_age(std::int64_t age);

}  // namespace vond::standalone
