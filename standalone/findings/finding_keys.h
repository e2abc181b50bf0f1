#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// The keys of an input line.
enum class FindingKey {
  ID,
  SEVERITY,
  TYPE,
  CATEGORY,
  MESSAGE,
  REMEDY,
  NODES,
  ROW_IDS,
  DEFINITIONS,
  BASED_ON,
  COUNT,
  FIRST_SEEN,
  // The last ones: keys of lines of their own.
  BEGIN,
  END,
  EXAMINED,
};

/// How findings spell the keys, in the order of FindingKey.
inline constexpr std::array<std::string_view, static_cast<std::size_t>(FindingKey::EXAMINED) + 1>
    FINDING_KEY_NAMES = {"id",     "severity",   "type",    "category",    "message",
                         "remedy", "nodes",      "row_ids", "definitions", "based_on",
                         "count",  "first_seen", "begin",   "end",         "examined"};

static_assert(std::none_of(FINDING_KEY_NAMES.begin(), FINDING_KEY_NAMES.end(),
                           [](std::string_view name) { return name.empty(); }),
              "every key has a name");

constexpr std::string_view name_of(FindingKey key) {
  return FINDING_KEY_NAMES[static_cast<std::size_t>(key)];
}

static_assert(name_of(FindingKey::ID) == "id" && name_of(FindingKey::EXAMINED) == "examined");

/// Whether the key needs a line of its own.
constexpr bool stands_alone(FindingKey key) { return key >= FindingKey::BEGIN; }

/// Whether a line may lack the key.
constexpr bool is_optional(FindingKey key) {
  return key != FindingKey::ID && key != FindingKey::SEVERITY;
}

/// Returns the key that findings spell `name`, nothing when there is none.
inline std::optional<FindingKey> find_key(std::string_view name) {
  const auto* const found = std::find(FINDING_KEY_NAMES.begin(), FINDING_KEY_NAMES.end(), name);
  if (found == FINDING_KEY_NAMES.end()) {
    return std::nullopt;
  }
  return static_cast<FindingKey>(found - FINDING_KEY_NAMES.begin());
}

/// Returns how findings spell all keys.
inline std::vector<std::string_view> finding_key_names() {
  return {FINDING_KEY_NAMES.begin(), FINDING_KEY_NAMES.end()};
}

}  // namespace vond::standalone
