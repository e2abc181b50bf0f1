// fold_names [TIMES]: writes the names of standard input, a line each, as one folded node set,
// which it folds as many times as told: so the time of folding can be told from that of starting.
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "vond/postprocessor/string_interface.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  std::vector<std::vector<std::string>> lists(1);
  for (std::string name; std::getline(std::cin, name);) {
    lists[0].push_back(std::move(name));
  }
  vond::postprocessor::StringInterface strings;
  std::string folded;
  for (long left = argc > 1 ? std::atol(argv[1]) : 1; left > 0; --left) {
    folded = strings.get_node_string(lists);
  }
  std::cout << folded + "\n";
  return std::cout.flush() ? 0 : 1;
}
