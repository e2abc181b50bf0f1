#pragma once

#include <cstddef>
#include <string_view>

namespace vond::extension {

/// A character of a UTF-8 text.
struct CodePoint {
  char32_t value = 0;
  /// In bytes, 0 for what is no UTF-8.
  std::size_t size = 0;
};

/// U+FFFD, which stands for what cannot be shown.
inline constexpr std::string_view REPLACEMENT_CHARACTER = "\xEF\xBF\xBD";

/// Returns the character that begins a text, which is not empty. Overlong forms, surrogates and
/// what is above U+10FFFF are no UTF-8.
inline CodePoint first_code_point(std::string_view text) {
  const auto byte = [text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const unsigned char first = byte(0);
  if (first < 0x80) {
    return {first, 1};
  }
  const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < size) {
    return {};
  }
  // The bits that the first byte has beside its mark.
  char32_t value = first & (0x7FU >> size);
  for (std::size_t index = 1; index < size; ++index) {
    if ((byte(index) & 0xC0U) != 0x80) {
      return {};
    }
    value = (value << 6U) | (byte(index) & 0x3FU);
  }
  const bool is_overlong = (size == 3 && value < 0x800) || (size == 4 && value < 0x10000);
  const bool is_surrogate = value >= 0xD800 && value <= 0xDFFF;
  return is_overlong || is_surrogate || value > 0x10FFFF ? CodePoint() : CodePoint{value, size};
}

/// Calls `visit(value, bytes)`, with a char32_t and a std::string_view, for every character of
/// `text`. Each byte that is no UTF-8 is visited as U+FFFD.
template <typename Visit>
void for_each_code_point(std::string_view text, Visit visit) {
  while (!text.empty()) {
    const CodePoint code_point = first_code_point(text);
    if (code_point.size == 0) {
      visit(U'\uFFFD', REPLACEMENT_CHARACTER);
      text.remove_prefix(1);
    } else {
      visit(code_point.value, text.substr(0, code_point.size));
      text.remove_prefix(code_point.size);
    }
  }
}

}  // namespace vond::extension
