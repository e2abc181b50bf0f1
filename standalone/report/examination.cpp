#include "standalone/report/examination.h"

#include <algorithm>
#include <iterator>

namespace vond::standalone {
namespace {

/// Both are sorted.
template <typename Names, typename OtherNames>
std::vector<std::string> difference(const Names& names, const OtherNames& others) {
  std::vector<std::string> rest;
  std::set_difference(names.begin(), names.end(), others.begin(), others.end(),
                      std::back_inserter(rest));
  return rest;
}

}  // namespace

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

std::vector<std::string> Examination::seen(const StringInterner& nodes_with_findings) const {
  if (known_) {
    return {examined_.begin(), examined_.end()};
  }
  return nodes_with_findings.sorted();
}

std::vector<std::string> Examination::expected_and_not_in(
    const std::vector<std::string>& seen) const {
  return difference(expected_, seen);
}

std::vector<std::string> Examination::not_expected_of(const std::vector<std::string>& seen) const {
  return difference(seen, expected_);
}

}  // namespace vond::standalone
