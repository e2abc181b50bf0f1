#include "node_numbers.h"

#include <algorithm>

namespace vond_html {

NodeNumbers::NodeNumbers(const std::vector<NodeGroup>& groups) {
  for (const NodeGroup& group : groups) {
    for (const NodeState& node : group.nodes) {
      numbers_.try_emplace(node.name, static_cast<std::int64_t>(numbers_.size()));
    }
  }
}

std::vector<std::int64_t> NodeNumbers::ranges_of(const std::vector<std::string_view>& names) const {
  std::vector<std::int64_t> numbers;
  numbers.reserve(names.size());
  for (const std::string_view name : names) {
    if (const auto found = numbers_.find(name); found != numbers_.end()) {
      numbers.push_back(found->second);
    }
  }
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());

  std::vector<std::int64_t> ranges;
  for (std::size_t first = 0; first < numbers.size();) {
    std::size_t last = first;
    while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) {
      ++last;
    }
    ranges.push_back(numbers[first]);
    if (last != first) {
      ranges.push_back(-numbers[last]);
    }
    first = last + 1;
  }
  return ranges;
}

}  // namespace vond_html
