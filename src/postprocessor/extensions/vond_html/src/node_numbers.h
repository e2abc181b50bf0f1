#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "node_states.h"

namespace vond_html {

/// Numbers the nodes of the page from 0, through all groups. The groups must outlive it.
class NodeNumbers {
 public:
  explicit NodeNumbers(const std::vector<NodeGroup>& groups);

  /// Returns the numbers of nodes in ascending order, each once. What follows one another is one
  /// range: its first number, and its last one below zero. 3, -7, 9 are 3 to 7, and 9.
  std::vector<std::int64_t> ranges_of(const std::vector<std::string_view>& names) const;

 private:
  std::unordered_map<std::string_view, std::int64_t> numbers_;
};

}  // namespace vond_html
