#pragma once

#include <string_view>
#include <vector>

#include "standalone/model/finding.h"

namespace vond::test {

/// A finding of which tests name only what matters to them. The views must outlive its use.
struct FindingParts {
  postprocessor::TypeCode type = postprocessor::OBSERVATIONS;
  std::string_view id = "id";
  int severity = 50;
  std::string_view category = {};
  std::string_view message = {};
  std::string_view remedy = {};
  std::vector<std::string_view> nodes = {};
  std::vector<int> row_ids = {};
  std::vector<std::string_view> definitions = {};
  std::vector<std::string_view> based_on = {};
  std::uint64_t count = 1;
};

inline standalone::Finding make_finding(const FindingParts& parts) {
  return {{parts.type,
           parts.id,
           parts.severity,
           {parts.message, parts.remedy, parts.category},
           parts.definitions,
           parts.based_on},
          parts.nodes,
          parts.row_ids,
          parts.count};
}

}  // namespace vond::test
