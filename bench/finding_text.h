#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vond::bench {

/// Puts one finding together as a line of JSON, a key after the other. Texts need no escapes.
class FindingText {
 public:
  FindingText& add(std::string_view key, std::string_view text) {
    begin(key);
    append_text(text);
    return *this;
  }

  FindingText& add(std::string_view key, std::size_t number) {
    begin(key);
    line_ += std::to_string(number);
    return *this;
  }

  FindingText& add(std::string_view key, const std::vector<std::string>& texts) {
    begin(key);
    append_list(texts, [this](const std::string& text) { append_text(text); });
    return *this;
  }

  FindingText& add(std::string_view key, const std::vector<std::size_t>& numbers) {
    begin(key);
    append_list(numbers, [this](std::size_t number) { line_ += std::to_string(number); });
    return *this;
  }

  /// Returns the line, with its end.
  std::string line() const { return line_ + "}\n"; }

 private:
  void begin(std::string_view key) {
    line_ += line_.empty() ? "{" : ", ";
    append_text(key);
    line_ += ": ";
  }

  void append_text(std::string_view text) { line_.append("\"").append(text).append("\""); }

  template <typename Items, typename Append>
  void append_list(const Items& items, Append append) {
    line_ += "[";
    for (std::size_t index = 0; index < items.size(); ++index) {
      if (index != 0) {
        line_ += ", ";
      }
      append(items[index]);
    }
    line_ += "]";
  }

  std::string line_;
};

}  // namespace vond::bench
