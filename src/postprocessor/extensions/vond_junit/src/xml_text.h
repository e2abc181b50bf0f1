#pragma once

#include <string>
#include <string_view>

#include "vond/extension/markup_text.h"

namespace vond_junit {

using vond::extension::shortened;

/// Returns `text` as it stands between tags, which is the same in XML and HTML.
inline std::string xml_text(std::string_view text) { return vond::extension::html_escape(text); }

/// Returns `text` as it stands in an attribute, where readers take blanks for the tabs and line
/// feeds of xml_text().
std::string xml_attribute(std::string_view text);

}  // namespace vond_junit
