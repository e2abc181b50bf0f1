#pragma once

#include <vector>

#include "html_writer.h"
#include "node_states.h"
#include "page_issues.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_html {

/// Of how many issues the script knows, the worst of all. Browsers draw no longer list than one of
/// some 300,000.
inline constexpr std::size_t MOST_ISSUES_OF_SCRIPT = 200'000;

/// Writes the script of the page behind what it reads, a JSON document in an element that no
/// browser runs: the nodes, and all issues with what is known of each.
void write_page_script(HtmlWriter& page,
                       const vond::postprocessor::PostprocessorExtensionData& data,
                       const vond::vocabulary::SeverityBandTable& bands,
                       const std::vector<NodeGroup>& groups, const PageIssues& issues);

}  // namespace vond_html
