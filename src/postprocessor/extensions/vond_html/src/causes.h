#pragma once

#include <vector>

#include "band_summaries.h"
#include "html_writer.h"
#include "page_issues.h"

namespace vond_html {

/// Writes what is wrong, band by band: first the diagnoses, each with what it explains, then what
/// nothing explains, then the checks without data. Bands
/// without issues are left out.
void write_causes(HtmlWriter& page, const std::vector<BandSummary>& summaries,
                  const PageIssues& issues);

}  // namespace vond_html
