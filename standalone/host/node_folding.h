#pragma once

#include <string>
#include <vector>

namespace vond::standalone {

/// Returns all names of all lists as one folded node set, as StringInterface::get_node_string()
/// promises it.
std::string fold_node_names(const std::vector<std::vector<std::string>>& node_lists);

}  // namespace vond::standalone
