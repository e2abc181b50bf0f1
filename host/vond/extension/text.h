#pragma once

#include <string>

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

}  // namespace vond::extension
