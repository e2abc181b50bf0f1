#include "standalone/text/trimming.h"

#include <utf8proc.h>

#include <cstddef>
#include <cstdint>

#include "standalone/text/utf8.h"

namespace vond::standalone {
namespace {

bool is_white_space(const Character& character) {
  constexpr std::uint32_t NEXT_LINE = 0x85;
  if (!character.is_utf8) {
    return false;
  }
  switch (utf8proc_category(static_cast<utf8proc_int32_t>(character.value))) {
    case UTF8PROC_CATEGORY_ZS:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
      return true;
    default:
      return (character.value >= '\t' && character.value <= '\r') || character.value == NEXT_LINE;
  }
}

/// Returns where the last character of `text`, which is not empty, begins.
std::size_t start_of_last_character(std::string_view text) {
  std::size_t start = text.size() - 1;
  while (start > 0 && is_utf8_continuation(text[start])) {
    --start;
  }
  return start;
}

}  // namespace

std::string_view trimmed_with_care(std::string_view text) noexcept {
  while (!text.empty()) {
    const Character first = first_character(text);
    if (!is_white_space(first)) {
      break;
    }
    text.remove_prefix(first.size);
  }
  while (!text.empty()) {
    const std::size_t last = start_of_last_character(text);
    const Character character = first_character(text.substr(last));
    if (!is_white_space(character) || last + character.size != text.size()) {
      break;
    }
    text.remove_suffix(character.size);
  }
  return text;
}

}  // namespace vond::standalone
