#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <stdexcept>
#include <string>

namespace vond::extension {

/// Returns "2025-11-21T04:30:00Z" for seconds since 1970-01-01 00:00:00 UTC. Throws
/// std::overflow_error for times without a year of four digits.
inline std::string utc_time(std::int64_t seconds) {
  const std::time_t time = seconds;
  std::tm utc{};
  char text[sizeof "2025-11-21T04:30:00Z"];
  if (gmtime_r(&time, &utc) == nullptr ||
      std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc) != sizeof text - 1) {
    throw std::overflow_error("the report's time has no year of four digits");
  }
  return text;
}

/// The same for a time that may not be known; then nothing.
inline std::optional<std::string> utc_time(const std::optional<std::int64_t>& seconds) {
  return seconds ? std::optional(utc_time(*seconds)) : std::nullopt;
}

}  // namespace vond::extension
