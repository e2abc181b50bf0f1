#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// Returns `text` in double quotes.
inline std::string in_quotes(std::string_view text) {
  std::string quote = "\"";
  return quote.append(text).append("\"");
}

/// Returns `1 node`, `2 nodes`.
inline std::string count_of(std::size_t count, std::string_view singular, std::string_view plural) {
  return std::to_string(count).append(" ").append(count == 1 ? singular : plural);
}

/// Returns what `text_of` makes of each item, with ", " between them; empty texts at the start are
/// left out.
template <typename Items, typename TextOf>
std::string join(const Items& items, TextOf text_of) {
  std::string text;
  for (const auto& item : items) {
    text.append(text.empty() ? "" : ", ").append(text_of(item));
  }
  return text;
}

/// Returns the texts with ", " between them; empty ones at the start are left out.
template <typename Texts>
std::string join(const Texts& texts) {
  return join(texts, [](std::string_view text) { return text; });
}

/// Returns the items with the separator between them.
inline std::string join_with(std::span<const std::string> items, std::string_view separator) {
  std::string joined;
  for (const std::string& item : items) {
    joined.append(&item == &items.front() ? "" : separator).append(item);
  }
  return joined;
}

/// Returns `one of "A", "B", "C"`.
inline std::string one_of(const std::vector<std::string_view>& words) {
  return "one of " + join(words, in_quotes);
}

}  // namespace vond::standalone
