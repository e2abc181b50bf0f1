#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

/// The keys of an input line, and how they are recognised.
namespace vond::standalone::finding_keys {

enum Key : std::size_t {
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
  EXAMINED,
  UNKNOWN_KEY
};

inline constexpr std::array<std::string_view, UNKNOWN_KEY> KEY_NAMES = {
    "id",    "severity", "type",        "category", "message", "remedy",
    "nodes", "row_ids",  "definitions", "based_on", "examined"};

/// How many bytes the recognition of a key in its source may read.
inline constexpr std::size_t KEY_WIDTH = 16;

// Keys are looked up for every value of every line: by their first letters, and compared with their
// closing quotes, so that nobody needs to look for their ends.
inline constexpr std::size_t SLOTS = 32;

/// A key with its closing quote; `mask` has ones where it has letters.
struct KeyPattern {
  std::array<unsigned char, KEY_WIDTH> text{};
  std::array<unsigned char, KEY_WIDTH> mask{};
};

constexpr std::array<KeyPattern, UNKNOWN_KEY> key_patterns() {
  std::array<KeyPattern, UNKNOWN_KEY> patterns{};
  for (std::size_t key = 0; key < UNKNOWN_KEY; ++key) {
    for (std::size_t i = 0; i <= KEY_NAMES[key].size(); ++i) {
      patterns[key].text[i] =
          static_cast<unsigned char>(i < KEY_NAMES[key].size() ? KEY_NAMES[key][i] : '"');
      patterns[key].mask[i] = 0xFF;
    }
  }
  return patterns;
}

inline constexpr std::array<KeyPattern, UNKNOWN_KEY> KEY_PATTERNS = key_patterns();

constexpr std::size_t slot_of(unsigned char first, unsigned char second, unsigned char third) {
  return (first + 5U * second + third) % SLOTS;
}

constexpr std::size_t slot_of_key(std::size_t key) {
  const auto& text = KEY_PATTERNS[key].text;
  return slot_of(text[0], text[1], text[2]);
}

constexpr std::array<std::uint8_t, SLOTS> key_slots() {
  std::array<std::uint8_t, SLOTS> slots{};
  for (std::size_t key = 0; key < UNKNOWN_KEY; ++key) {
    slots[slot_of_key(key)] = static_cast<std::uint8_t>(key);
  }
  return slots;
}

inline constexpr std::array<std::uint8_t, SLOTS> KEY_SLOTS = key_slots();

constexpr bool has_every_key_a_slot() {
  for (std::size_t key = 0; key < UNKNOWN_KEY; ++key) {
    if (KEY_SLOTS[slot_of_key(key)] != key) {
      return false;
    }
  }
  return true;
}
static_assert(has_every_key_a_slot());

inline bool matches(const char* source, const KeyPattern& pattern) {
  std::uint64_t difference = 0;
  for (std::size_t at = 0; at < KEY_WIDTH; at += sizeof difference) {
    std::uint64_t word = 0;
    std::uint64_t text = 0;
    std::uint64_t mask = 0;
    std::memcpy(&word, source + at, sizeof word);
    std::memcpy(&text, pattern.text.data() + at, sizeof text);
    std::memcpy(&mask, pattern.mask.data() + at, sizeof mask);
    difference |= (word ^ text) & mask;
  }
  return difference == 0;
}

/// Returns the key whose text starts at `source`, UNKNOWN_KEY when it is none or is written with
/// escapes. `source` points behind the opening quote of a key; KEY_WIDTH bytes may be read.
inline std::size_t find_in_source(const char* source) {
  const auto letter = [source](std::size_t i) { return static_cast<unsigned char>(source[i]); };
  const std::size_t key = KEY_SLOTS[slot_of(letter(0), letter(1), letter(2))];
  return matches(source, KEY_PATTERNS[key]) ? key : UNKNOWN_KEY;
}

/// Returns the key of that name, UNKNOWN_KEY when there is none.
inline std::size_t find(std::string_view name) {
  const auto* const key = std::find(KEY_NAMES.begin(), KEY_NAMES.end(), name);
  return static_cast<std::size_t>(key - KEY_NAMES.begin());
}

/// Returns the names of all keys.
inline std::vector<std::string_view> all_names() { return {KEY_NAMES.begin(), KEY_NAMES.end()}; }

}  // namespace vond::standalone::finding_keys
