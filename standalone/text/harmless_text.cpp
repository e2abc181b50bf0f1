#include "standalone/text/harmless_text.h"

#include <utf8proc.h>

#include <algorithm>
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

/// Code points that will never be characters.
bool is_noncharacter(std::uint32_t code_point) {
  constexpr std::uint32_t LAST_TWO_OF_A_PLANE = 0xFFFE;
  return (code_point >= 0xFDD0 && code_point <= 0xFDEF) ||
         (code_point & LAST_TWO_OF_A_PLANE) == LAST_TWO_OF_A_PLANE;
}

bool is_harmless_code_point(std::uint32_t code_point) {
  switch (utf8proc_category(static_cast<utf8proc_int32_t>(code_point))) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
      return false;
    case UTF8PROC_CATEGORY_CN:
      return !is_unassigned_and_invisible(code_point) && !is_noncharacter(code_point);
    default:
      return true;
  }
}

bool is_harmless_character(const Character& character) {
  return character.is_utf8 && is_harmless_code_point(character.value);
}

/// Returns how many of the bytes that `text` begins with are line ends.
std::size_t line_end_run(std::string_view text) {
  return std::min(text.find_first_not_of("\r\n"), text.size());
}

void append_escape(std::string& out, std::uint32_t value) {
  const char* format = value <= 0xFF ? "\\x%02x" : value <= 0xFFFF ? "\\u%04x" : "\\U%08x";
  std::array<char, 16> escape{};
  const int length = std::snprintf(escape.data(), escape.size(), format, value);
  out.append(escape.data(), static_cast<std::size_t>(length));
}

}  // namespace

bool is_harmless(std::string_view text) noexcept {
  if (is_printable_ascii(text)) {
    return true;
  }
  while (!text.empty()) {
    const Character character = first_character(text);
    if (!is_harmless_character(character)) {
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
    if (const std::size_t run = line_ends == LineEnds::JOINED ? line_end_run(text) : 0) {
      shown += ' ';
      text.remove_prefix(run);
      continue;
    }
    const Character character = first_character(text);
    if (is_harmless_character(character)) {
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
