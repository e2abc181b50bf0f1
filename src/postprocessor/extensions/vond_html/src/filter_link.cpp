#include "filter_link.h"

namespace vond_html {
namespace {

bool stands_for_itself(char byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= 'a' && byte <= 'z') || byte == '_' || byte == '-' || byte == '.';
}

/// Appends `text` as addresses have it, application/x-www-form-urlencoded with %20 for a blank.
void append_encoded(std::string_view text, std::string& address) {
  constexpr std::string_view DIGITS = "0123456789ABCDEF";
  for (const char byte : text) {
    if (stands_for_itself(byte)) {
      address += byte;
    } else {
      const auto value = static_cast<unsigned char>(byte);
      address += '%';
      address += DIGITS[value >> 4U];
      address += DIGITS[value & 0xFU];
    }
  }
}

}  // namespace

std::string filter_fragment(Filter filter) {
  std::string fragment;
  for (const auto& [name, value] : filter) {
    fragment.append(fragment.empty() ? "" : "&").append(name).append("=");
    append_encoded(value, fragment);
  }
  return fragment;
}

void write_filter_text(HtmlWriter& page, Filter filter, std::string_view text) {
  page.element("span", {{"data-filter", filter_fragment(filter)}}, text);
}

}  // namespace vond_html
