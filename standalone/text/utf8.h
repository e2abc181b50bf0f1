#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vond::standalone {

/// One step of a walk through text: a code point, or a byte that is not UTF-8.
struct Character {
  /// The code point, or the byte.
  std::uint32_t value;
  /// In bytes, at least 1.
  std::size_t size;
  bool is_utf8;
};

/// Whether a byte of UTF-8 is not the first one of its character.
constexpr bool is_utf8_continuation(char byte) { return (byte & '\xC0') == '\x80'; }

/// Returns the character that `text`, which is not empty, begins with.
Character first_character(std::string_view text) noexcept;

/// Returns the first `count` characters of `text`, which holds at least as many.
std::string_view first_characters(std::string_view text, std::size_t count) noexcept;

/// Returns how many characters `text`, which is UTF-8, holds.
std::size_t count_characters(std::string_view text) noexcept;

}  // namespace vond::standalone
