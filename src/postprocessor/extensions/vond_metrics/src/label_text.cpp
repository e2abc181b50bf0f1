#include "label_text.h"

#include "vond/extension/code_points.h"

namespace vond_metrics {

using vond::extension::REPLACEMENT_CHARACTER;

std::string label_text(std::string_view text) {
  constexpr char32_t DELETE = 0x7F;
  std::string label;
  label.reserve(text.size());
  vond::extension::for_each_code_point(text, [&label](char32_t value, std::string_view bytes) {
    const bool is_control = value < U' ' || value == DELETE;
    const bool is_taken = !is_control || value == U'\n' || value == U'\t';
    label += is_taken ? bytes : REPLACEMENT_CHARACTER;
  });
  return label;
}

std::string escaped(std::string_view label) {
  std::string text;
  text.reserve(label.size());
  for (const char byte : label) {
    if (byte == '\n') {
      text += "\\n";
      continue;
    }
    if (byte == '\\' || byte == '"') {
      text += '\\';
    }
    text += byte;
  }
  return text;
}

}  // namespace vond_metrics
