#include "standalone/report/examination.h"

#include <algorithm>
#include <iterator>

namespace vond::standalone {

std::vector<std::string> Examination::not_examined(const StringInterner& nodes) const {
  std::vector<std::string> names;
  for (StringInterner::Id id = 0; id < nodes.size(); ++id) {
    if (!examined_.contains(nodes[id])) {
      names.push_back(nodes[id]);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> Examination::expected_and_not_examined() const {
  std::vector<std::string> names;
  std::set_difference(expected_.begin(), expected_.end(), examined_.begin(), examined_.end(),
                      std::back_inserter(names));
  return names;
}

}  // namespace vond::standalone
