#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "vond/extension/code_points.h"

namespace vond::extension {

namespace json_text_detail {

/// Whether a byte stands for itself within a JSON string.
inline bool is_plain(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= ' ' && value < 0x7f && byte != '"' && byte != '\\';
}

inline void append_escaped(std::string& json, char32_t value) {
  constexpr char DIGITS[] = "0123456789abcdef";
  json += "\\u";
  for (unsigned shift = 16; shift > 0;) {
    shift -= 4;
    json += DIGITS[(value >> shift) & 0xfU];
  }
}

/// Appends the character at the start of `text`, which is not plain. Returns its size in `text`.
inline std::size_t append_special(std::string& json, std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first == '"' || first == '\\') {
    json += '\\';
    json += text[0];
    return 1;
  }
  if (first < 0x80) {
    append_escaped(json, first);
    return 1;
  }
  const CodePoint code_point = first_code_point(text);
  // These two end lines in JavaScript.
  if (code_point.value == U'\u2028' || code_point.value == U'\u2029') {
    append_escaped(json, code_point.value);
    return code_point.size;
  }
  if (code_point.size == 0) {
    append_escaped(json, U'\uFFFD');
    return 1;
  }
  json += text.substr(0, code_point.size);
  return code_point.size;
}

}  // namespace json_text_detail

/// Appends `text` as a JSON string in quotes. Any bytes become valid JSON: those that are not UTF-8
/// become U+FFFD.
inline void append_json_string(std::string& json, std::string_view text) {
  json += '"';
  std::size_t plain_start = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (json_text_detail::is_plain(text[at])) {
      ++at;
      continue;
    }
    json += text.substr(plain_start, at - plain_start);
    at += json_text_detail::append_special(json, text.substr(at));
    plain_start = at;
  }
  json += text.substr(plain_start);
  json += '"';
}

/// Returns `text` as a JSON string in quotes; see append_json_string().
inline std::string json_quote(std::string_view text) {
  std::string json;
  append_json_string(json, text);
  return json;
}

}  // namespace vond::extension
