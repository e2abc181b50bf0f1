#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// Returns `text` in double quotes.
inline std::string in_quotes(std::string_view text) {
  std::string quote = "\"";
  return quote.append(text).append("\"");
}

/// Returns `one of "A", "B", "C"`.
inline std::string one_of(const std::vector<std::string_view>& words) {
  std::string text = "one of ";
  const char* separator = "\"";
  for (const std::string_view word : words) {
    text.append(separator).append(word).append("\"");
    separator = ", \"";
  }
  return text;
}

}  // namespace vond::standalone
