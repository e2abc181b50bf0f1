#pragma once

#include "html_writer.h"

namespace vond_html {

/// Writes all that stands before the report, up to and with the start of the body. The page asks
/// for nothing from anywhere, and its policy sees to it.
void write_page_start(HtmlWriter& page);

/// Writes what stands behind the report. Whoever finds it has the whole page.
void write_page_end(HtmlWriter& page);

}  // namespace vond_html
