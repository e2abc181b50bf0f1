#include "standalone/report/related_issues.h"

#include <cstddef>
#include <memory>
#include <set>
#include <string_view>
#include <unordered_map>

namespace vond::standalone {

using postprocessor::DIAGNOSES;
using postprocessor::Type;

namespace {

using NumbersById = std::unordered_map<std::string_view, std::vector<std::size_t>>;

/// Returns the issues that a diagnosis may be based on.
NumbersById find_observations(const std::vector<CollapsedIssue>& collapsed) {
  NumbersById observations;
  for (std::size_t number = 0; number < collapsed.size(); ++number) {
    if (collapsed[number].type != DIAGNOSES) {
      observations[collapsed[number].id].push_back(number);
    }
  }
  return observations;
}

void relate(const std::shared_ptr<RecordIssues::Issue>& diagnosis,
            const std::shared_ptr<RecordIssues::Issue>& observation) {
  diagnosis->related_issues[Type::OBSERVATION].insert(observation);
  observation->related_issues[Type::DIAGNOSIS].insert(diagnosis);
}

}  // namespace

std::vector<std::string> relate_issues(const std::vector<CollapsedIssue>& collapsed,
                                       const RecordIssues& issues) {
  const NumbersById observations = find_observations(collapsed);
  std::set<std::string> unknown_ids;
  for (std::size_t number = 0; number < collapsed.size(); ++number) {
    for (const std::string& id : collapsed[number].based_on) {
      const auto found = observations.find(id);
      if (found == observations.end()) {
        unknown_ids.insert(id);
        continue;
      }
      if (collapsed[number].type != DIAGNOSES) {
        continue;
      }
      for (const std::size_t observation : found->second) {
        relate(issues[number], issues[observation]);
      }
    }
  }
  return {unknown_ids.begin(), unknown_ids.end()};
}

}  // namespace vond::standalone
