#pragma once

#include <string>

#include "html_writer.h"
#include "page_issues.h"
#include "vond/facts/run_facts.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_html {

/// Returns "1 new, 0 worse, 3 same, 0 better, 1 gone"; what is rare is named where there is any.
std::string change_counts(const vond::facts::Since& since);

/// Writes what has changed since earlier runs, nothing where there was none.
void write_changes(HtmlWriter& page, const vond::postprocessor::PostprocessorExtensionData& data,
                   const vond::vocabulary::SeverityBandTable& bands, const PageIssues& issues);

}  // namespace vond_html
