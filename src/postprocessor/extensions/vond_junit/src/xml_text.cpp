#include "xml_text.h"

#include "vond/extension/code_points.h"

namespace vond_junit {
namespace {

bool is_harmless(char32_t value) {
  constexpr char32_t DELETE = 0x7F;
  constexpr char32_t LAST_CONTROL = 0x9F;
  if (value < U' ') {
    return value == U'\t' || value == U'\n';
  }
  const bool is_late_control = value >= DELETE && value <= LAST_CONTROL;
  const bool is_noncharacter = (value & 0xFFFEU) == 0xFFFE;
  return !is_late_control && !is_noncharacter;
}

/// Returns what stands for a character that XML reads otherwise, "" for all others.
std::string_view reference(char32_t value) {
  switch (value) {
    case U'&':
      return "&amp;";
    case U'<':
      return "&lt;";
    case U'>':
      return "&gt;";
    case U'"':
      return "&quot;";
    case U'\'':
      return "&apos;";
    default:
      return "";
  }
}

}  // namespace

std::string xml_text(std::string_view text) {
  std::string xml;
  xml.reserve(text.size());
  vond::extension::for_each_code_point(text, [&xml](char32_t value, std::string_view bytes) {
    if (!is_harmless(value)) {
      xml += vond::extension::REPLACEMENT_CHARACTER;
      return;
    }
    const std::string_view written = reference(value);
    xml += written.empty() ? bytes : written;
  });
  return xml;
}

std::string xml_attribute(std::string_view text) {
  std::string xml;
  for (const char byte : xml_text(text)) {
    if (byte == '\n') {
      xml += "&#10;";
    } else if (byte == '\t') {
      xml += "&#9;";
    } else {
      xml += byte;
    }
  }
  return xml;
}

std::string shortened(std::string_view text, std::size_t most) {
  if (text.size() <= most) {
    return std::string(text);
  }
  const auto continues_a_character = [text](std::size_t index) {
    return (static_cast<unsigned char>(text[index]) & 0xC0U) == 0x80;
  };
  // A character has at most three bytes more than its first.
  std::size_t end = most;
  for (int step = 0; step < 3 && end > 0 && continues_a_character(end); ++step) {
    --end;
  }
  return std::string(text.substr(0, end)) + "...";
}

}  // namespace vond_junit
