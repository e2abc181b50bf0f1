// Names, one a line, folded: unfolding must give the same names, whatever their order.

#include "standalone/nodes/node_folding.h"

#include <algorithm>
#include <cstddef>

#include "fuzz/oracle.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "standalone/nodes/node_set.h"

namespace {

using namespace vond::fuzz;
using vond::standalone::expand_node_set;
using vond::standalone::fold_node_names;

Names sorted(Names names) {
  std::sort(names.begin(), names.end());
  return names;
}

Names each_once(Names names) {
  names = sorted(std::move(names));
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

Names reversed(Names names) {
  std::reverse(names.begin(), names.end());
  return names;
}

/// Deals the names out to three lists, the first half of them a second time.
std::vector<Names> dealt_out(const Names& names) {
  std::vector<Names> lists(3);
  for (std::size_t i = 0; i < names.size(); ++i) {
    lists[i % lists.size()].push_back(names[i]);
  }
  lists.emplace_back(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(names.size() / 2));
  return lists;
}

void check_folding(const Names& names) {
  const std::string folded = fold_node_names({names});
  expect_same("unfolding to give the names that were folded, each once",
              sorted(expand_node_set(folded)), each_once(names));
  expect_same("the order of the names not to count", fold_node_names({reversed(names)}), folded);
  expect_same("nor their sorting", fold_node_names({each_once(names)}), folded);
  expect_same("nor how they are dealt out to lists", fold_node_names(dealt_out(names)), folded);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Names names;
  std::string_view text = text_of(data, size);
  while (!text.empty()) {
    names.emplace_back(take_line(text));
  }
  if (names.empty()) {
    expect_same("no names to fold to a word that says so", fold_node_names({names}), "none");
  } else {
    check_folding(names);
  }
  return 0;
}
