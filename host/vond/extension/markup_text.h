#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "vond/extension/code_points.h"

namespace vond::extension {

/// Whether XML 1.0 allows a character and readers of it and of HTML show it as text.
inline bool is_harmless_in_markup(char32_t value) {
  constexpr char32_t DELETE = 0x7F;
  constexpr char32_t LAST_CONTROL = 0x9F;
  if (value < U' ') {
    return value == U'\t' || value == U'\n';
  }
  const bool is_late_control = value >= DELETE && value <= LAST_CONTROL;
  const bool is_noncharacter = (value & 0xFFFEU) == 0xFFFE;
  return !is_late_control && !is_noncharacter;
}

/// Returns what stands for a character that XML and HTML read otherwise, "" for all others.
inline std::string_view markup_reference(char32_t value) {
  switch (value) {
    case U'&':
      return "&amp;";
    case U'<':
      return "&lt;";
    case U'>':
      return "&gt;";
    case U'"':
      return "&quot;";
    case U'\'':
      return "&apos;";
    default:
      return "";
  }
}

/// Returns `text` as it stands between tags of XML and HTML, or between quotes in a tag of HTML.
/// What XML 1.0 forbids, control characters other than tabs and line feeds, noncharacters, and
/// bytes that are not UTF-8 become U+FFFD. Line feeds stay; one_line() takes them out.
inline std::string html_escape(std::string_view text) {
  std::string markup;
  markup.reserve(text.size());
  for_each_code_point(text, [&markup](char32_t value, std::string_view bytes) {
    if (!is_harmless_in_markup(value)) {
      markup += REPLACEMENT_CHARACTER;
      return;
    }
    const std::string_view written = markup_reference(value);
    markup += written.empty() ? bytes : written;
  });
  return markup;
}

/// Returns `text`, or its start and "..." when it has more bytes than `most`. Characters stay
/// whole.
inline std::string shortened(std::string_view text, std::size_t most) {
  if (text.size() <= most) {
    return std::string(text);
  }
  const auto continues_a_character = [text](std::size_t index) {
    return (static_cast<unsigned char>(text[index]) & 0xC0U) == 0x80;
  };
  // A character has at most three bytes more than its first.
  std::size_t end = most;
  for (int step = 0; step < 3 && end > 0 && continues_a_character(end); ++step) {
    --end;
  }
  return std::string(text.substr(0, end)) + "...";
}

}  // namespace vond::extension
