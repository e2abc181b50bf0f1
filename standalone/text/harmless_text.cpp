#include "standalone/text/harmless_text.h"

#include <utf8proc.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "standalone/text/printable_ascii.h"
#include "standalone/text/utf8.h"

namespace vond::standalone {

namespace {

constexpr std::size_t EXCERPT_CHARACTERS = 60;
// Enough for that many characters of four bytes.
constexpr std::size_t EXCERPT_SOURCE_BYTES = 4 * EXCERPT_CHARACTERS + 4;

/// Code points that no Unicode version has given a meaning yet but that programs are told to leave
/// out when they draw text.
bool is_unassigned_and_invisible(std::uint32_t code_point) {
  return code_point == 0x2065 || (code_point >= 0xFFF0 && code_point <= 0xFFF8) ||
         (code_point >= 0xE0000 && code_point <= 0xE0FFF);
}

bool is_harmless_code_point(std::uint32_t code_point, LineEnds line_ends) {
  if (code_point == '\n' || code_point == '\r') {
    return line_ends == LineEnds::KEPT;
  }
  switch (utf8proc_category(static_cast<utf8proc_int32_t>(code_point))) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
      return false;
    case UTF8PROC_CATEGORY_CN:
      return !is_unassigned_and_invisible(code_point);
    default:
      return true;
  }
}

bool is_harmless_character(const Character& character, LineEnds line_ends) {
  return character.is_utf8 && is_harmless_code_point(character.value, line_ends);
}

void append_escape(std::string& out, std::uint32_t value) {
  const char* format = value <= 0xFF ? "\\x%02x" : value <= 0xFFFF ? "\\u%04x" : "\\U%08x";
  std::array<char, 16> escape{};
  const int length = std::snprintf(escape.data(), escape.size(), format, value);
  out.append(escape.data(), static_cast<std::size_t>(length));
}

}  // namespace

bool is_harmless(std::string_view text, LineEnds line_ends) noexcept {
  if (is_printable_ascii(text)) {
    return true;
  }
  while (!text.empty()) {
    const Character character = first_character(text);
    if (!is_harmless_character(character, line_ends)) {
      return false;
    }
    text.remove_prefix(character.size);
  }
  return true;
}

std::string harmless(std::string_view text, LineEnds line_ends) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const Character character = first_character(text);
    if (is_harmless_character(character, line_ends)) {
      shown.append(text, 0, character.size);
    } else if (character.value == '\t') {
      shown += ' ';
    } else {
      append_escape(shown, character.value);
    }
    text.remove_prefix(character.size);
  }
  return shown;
}

std::string excerpt(std::string_view text) {
  constexpr std::string_view REST = "...";
  std::string shown = harmless(text.substr(0, EXCERPT_SOURCE_BYTES));
  if (text.size() <= EXCERPT_SOURCE_BYTES && count_characters(shown) <= EXCERPT_CHARACTERS) {
    return shown;
  }
  return std::string(first_characters(shown, EXCERPT_CHARACTERS - REST.size())).append(REST);
}

}  // namespace vond::standalone
