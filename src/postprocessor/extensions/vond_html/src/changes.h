#pragma once

#include "html_writer.h"
#include "page_issues.h"

namespace vond_html {

/// Writes what has changed since earlier runs, nothing where there was none.
void write_changes(HtmlWriter& page, const PageIssues& issues);

}  // namespace vond_html
