#include "xml_text.h"

namespace vond_junit {

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

}  // namespace vond_junit
