#pragma once

#include <string_view>

namespace vond_html {

/// What page.css holds.
extern const std::string_view PAGE_STYLE;

/// Its hash as a content security policy names it, "sha256-" and base64.
extern const std::string_view PAGE_STYLE_HASH;

/// The modules of the page in one script, which reads what write_page_script() writes.
extern const std::string_view PAGE_SCRIPT;

/// Its hash as a content security policy names it.
extern const std::string_view PAGE_SCRIPT_HASH;

}  // namespace vond_html
