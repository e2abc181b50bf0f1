#pragma once

#include <string_view>

namespace vond::standalone {

/// What some editors write before UTF-8.
inline constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

/// Returns `text`, the start of a file, without a byte order mark.
inline std::string_view without_byte_order_mark(std::string_view text) {
  return text.starts_with(BYTE_ORDER_MARK) ? text.substr(BYTE_ORDER_MARK.size()) : text;
}

}  // namespace vond::standalone
