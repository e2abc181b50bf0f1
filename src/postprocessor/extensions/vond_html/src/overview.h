#pragma once

#include <vector>

#include "band_summaries.h"
#include "html_writer.h"

namespace vond_html {

/// Writes the head of the report: the verdict and why, how old it is, what was looked at, what puts
/// it in doubt, and a link to each band.
void write_overview(HtmlWriter& page, const std::vector<BandSummary>& summaries);

}  // namespace vond_html
