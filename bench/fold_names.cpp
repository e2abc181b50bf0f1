// Writes the names of standard input, a line each, as one folded node set.
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "vond/postprocessor/string_interface.h"

int main() {
  std::ios::sync_with_stdio(false);
  std::vector<std::vector<std::string>> lists(1);
  for (std::string name; std::getline(std::cin, name);) lists[0].push_back(std::move(name));
  std::cout << vond::postprocessor::StringInterface().get_node_string(lists) + "\n";
  return std::cout.flush() ? 0 : 1;
}
