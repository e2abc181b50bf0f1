#include "standalone/host/node_folding.h"

#include <set>

namespace vond::standalone {

std::string fold_node_names(const std::vector<std::vector<std::string>>& node_lists) {
  std::set<std::string> names;
  for (const auto& list : node_lists) names.insert(list.begin(), list.end());
  std::string folded;
  for (const std::string& name : names) folded += (folded.empty() ? "" : ",") + name;
  return folded.empty() ? "none" : folded;
}

}  // namespace vond::standalone
