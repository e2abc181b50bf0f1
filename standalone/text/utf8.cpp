#include "standalone/text/utf8.h"

#include <utf8proc.h>

#include <algorithm>

namespace vond::standalone {

Character first_character(std::string_view text) noexcept {
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  utf8proc_int32_t code_point = -1;
  const auto size =
      utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &code_point);
  if (size <= 0) {
    return {*bytes, 1, false};
  }
  return {static_cast<std::uint32_t>(code_point), static_cast<std::size_t>(size), true};
}

std::string_view first_characters(std::string_view text, std::size_t count) noexcept {
  std::size_t end = 0;
  for (; count > 0; --count) {
    end += first_character(text.substr(end)).size;
  }
  return text.substr(0, end);
}

std::size_t count_characters(std::string_view text) noexcept {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return !is_utf8_continuation(byte); }));
}

}  // namespace vond::standalone
