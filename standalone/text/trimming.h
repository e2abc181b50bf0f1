#pragma once

#include <string_view>

#include "standalone/text/ascii.h"

namespace vond::standalone {

/// Returns what trimmed() does for a text that may begin or end with white space.
std::string_view trimmed_with_care(std::string_view text) noexcept;

/// Returns `text`, UTF-8, without the white space and line ends of Unicode at both ends.
inline std::string_view trimmed(std::string_view text) noexcept {
  if (!text.empty() && is_visible_ascii(text.front()) && is_visible_ascii(text.back())) {
    return text;
  }
  return trimmed_with_care(text);
}

}  // namespace vond::standalone
