#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vond::extension {

namespace json_text_detail {

/// Returns how many bytes the UTF-8 character at the start of `text`, which is not empty, has; 0
/// when what stands there is none (RFC 3629: no surrogates, no overlong forms, at most U+10FFFF).
inline std::size_t utf8_size(std::string_view text) {
  const auto byte = [text](std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
  };
  const auto continues = [&byte](std::size_t at) { return (byte(at) & 0xc0U) == 0x80U; };
  const unsigned first = byte(0);
  if (first < 0x80) {
    return 1;
  }
  if (first >= 0xc2 && first <= 0xdf && continues(1)) {
    return 2;
  }
  if (first >= 0xe0 && first <= 0xef && continues(1) && continues(2)) {
    const bool is_overlong = first == 0xe0 && byte(1) < 0xa0;
    const bool is_surrogate = first == 0xed && byte(1) >= 0xa0;
    return is_overlong || is_surrogate ? 0 : 3;
  }
  if (first >= 0xf0 && first <= 0xf4 && continues(1) && continues(2) && continues(3)) {
    const bool is_overlong = first == 0xf0 && byte(1) < 0x90;
    const bool is_too_great = first == 0xf4 && byte(1) >= 0x90;
    return is_overlong || is_too_great ? 0 : 4;
  }
  return 0;
}

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
  const std::size_t size = utf8_size(text);
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
