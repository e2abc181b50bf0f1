#pragma once

#include <algorithm>
#include <string>
#include <string_view>

/// ASCII characters. Nothing here depends on a locale.
namespace vond::standalone {

constexpr bool is_ascii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

constexpr bool is_digit(char byte) { return byte >= '0' && byte <= '9'; }

constexpr bool is_ascii_letter(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

constexpr bool is_ascii_control(char byte) {
  return static_cast<unsigned char>(byte) < ' ' || byte == '\x7F';
}

/// Whether the byte is an ASCII character that can be seen; a space cannot.
constexpr bool is_visible_ascii(char byte) { return byte > ' ' && byte < '\x7F'; }

constexpr char ascii_lower(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

constexpr char ascii_upper(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

inline bool has_digit(std::string_view text) {
  return std::any_of(text.begin(), text.end(), is_digit);
}

/// Returns `text` with its ASCII letters in lower case.
inline std::string lower_ascii(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), ascii_lower);
  return text;
}

/// Returns `text` with its ASCII letters in upper case.
inline std::string upper_ascii(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), ascii_upper);
  return text;
}

}  // namespace vond::standalone
