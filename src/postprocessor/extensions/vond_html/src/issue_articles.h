#pragma once

#include "html_writer.h"
#include "page_issues.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond_html {

/// Writes the issues of the page with all that is known of each, and how many more there are.
/// `log_level` is the record's.
void write_issues(HtmlWriter& page, const PageIssues& issues, const std::string& log_level);

}  // namespace vond_html
