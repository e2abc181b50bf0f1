#pragma once

#include "html_writer.h"
#include "page_issues.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_html {

/// How many definitions that fail the page has, and how many others.
inline constexpr std::size_t MOST_DEFINITIONS = 1000;

/// Browsers put what is nested deeper than a few hundred elements somewhere else.
inline constexpr std::size_t MOST_LEVELS = 64;

/// Writes the definitions as a tree that is folded out where it fails, with their issues; nothing
/// where there are none.
void write_definitions(HtmlWriter& page,
                       const vond::postprocessor::PostprocessorExtensionData& data,
                       const vond::vocabulary::SeverityBandTable& bands, const PageIssues& issues);

}  // namespace vond_html
