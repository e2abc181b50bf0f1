#pragma once

#include <string>
#include <vector>

namespace vond::standalone {

/// Returns all names of all lists as one folded node set, as StringInterface::get_node_string()
/// promises it. The text depends on the set of names alone, not on their order or repetition, and
/// expand_node_set() reads it back as that set ("none", which stands for no names, aside).
std::string fold_node_names(const std::vector<std::vector<std::string>>& node_lists);

}  // namespace vond::standalone
