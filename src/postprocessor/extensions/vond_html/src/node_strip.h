#pragma once

#include <vector>

#include "html_writer.h"
#include "node_states.h"
#include "page_issues.h"

namespace vond_html {

/// How many nodes the page shows one by one.
inline constexpr std::size_t MOST_NODES = 4000;

/// Writes how many nodes are in which state and, where they are not too many, a cell for each.
/// Nothing where there are none.
void write_nodes_strip(HtmlWriter& page, const std::vector<NodeGroup>& groups,
                       const PageIssues& issues);

}  // namespace vond_html
