#pragma once

#include <string>
#include <string_view>

namespace vond::extension {

/// Returns the items, strings, with `separator` between them.
template <typename Items>
std::string join(const Items& items, const std::string& separator) {
  std::string joined;
  bool first = true;
  for (const std::string& item : items) {
    if (!first) {
      joined += separator;
    }
    joined += item;
    first = false;
  }
  return joined;
}

/// Returns `text` as a field of a line: a blank in place of each ASCII control character, tabs and
/// line ends included.
inline std::string as_field(std::string_view text) {
  constexpr unsigned char DELETE = 0x7f;
  std::string field(text);
  for (char& byte : field) {
    const auto value = static_cast<unsigned char>(byte);
    if (value < ' ' || value == DELETE) {
      byte = ' ';
    }
  }
  return field;
}

}  // namespace vond::extension
