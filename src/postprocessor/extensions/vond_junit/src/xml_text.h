#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vond_junit {

/// Returns `text` as it stands between tags. What XML 1.0 forbids, control characters other than
/// tabs and line feeds, noncharacters, and bytes that are not UTF-8 become U+FFFD.
std::string xml_text(std::string_view text);

/// Returns `text` as it stands in an attribute, where readers take blanks for the tabs and line
/// feeds of xml_text().
std::string xml_attribute(std::string_view text);

/// Returns `text`, or its start and "..." when it has more bytes than `most`. Characters stay
/// whole.
std::string shortened(std::string_view text, std::size_t most);

}  // namespace vond_junit
