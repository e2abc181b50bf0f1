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

inline void append_escaped(std::string& json, unsigned value) {
  constexpr char DIGITS[] = "0123456789abcdef";
  json += "\\u";
  for (unsigned shift = 16; shift > 0;) {
    shift -= 4;
    json += DIGITS[value >> shift & 0xfU];
  }
}

/// Appends the character at the start of `text`, which is not plain. Returns its size in `text`.
inline std::size_t append_special(std::string& json, std::string_view text) {
  constexpr unsigned REPLACEMENT_CHARACTER = 0xfffd;
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
  const std::size_t size = first_code_point(text).size;
  // These two end lines in JavaScript.
  if (text.substr(0, 3) == "\xe2\x80\xa8" || text.substr(0, 3) == "\xe2\x80\xa9") {
    append_escaped(json, 0x2000U + static_cast<unsigned char>(text[2]) - 0x80U);
  } else if (size == 0) {
    append_escaped(json, REPLACEMENT_CHARACTER);
    return 1;
  } else {
    json += text.substr(0, size);
  }
  return size;
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
