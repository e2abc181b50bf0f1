#pragma once

#include <algorithm>
#include <string_view>

namespace vond::standalone {

/// The white space of JSON. Nothing else, no control character above all, may pass for it.
inline constexpr std::string_view JSON_WHITE_SPACE = " \t\r\n";

inline bool is_json_white_space(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

/// Returns `text` without the white space of JSON at its end.
inline std::string_view without_white_space_at_end(std::string_view text) {
  while (!text.empty() && is_json_white_space(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

/// Returns `text` without the white space of JSON at both ends.
inline std::string_view without_white_space(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(JSON_WHITE_SPACE), text.size()));
  return without_white_space_at_end(text);
}

}  // namespace vond::standalone
