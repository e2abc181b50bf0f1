#include "standalone/report/joined_issues.h"

#include <algorithm>
#include <functional>
#include <tuple>
#include <utility>

#include "standalone/model/severity_scale.h"

namespace vond::standalone {
namespace {

/// Returns a hash of what differs between most issues.
std::size_t hash_of(const CollapsedIssue& issue) {
  constexpr std::size_t GOLDEN_RATIO = 0x9e3779b97f4a7c15;
  const std::hash<std::string> hash;
  const std::size_t of_both = hash(issue.id) * GOLDEN_RATIO ^ hash(issue.findings->key());
  return of_both ^ of_both >> 32U;
}

auto what_makes_one(const CollapsedIssue& issue) {
  return std::tuple<const std::string&, const std::string&, postprocessor::TypeCode, int,
                    const std::string&, const std::vector<std::string>&,
                    const std::vector<std::string>&>(
      issue.id, issue.findings->key(), issue.type, band_of(issue.severity).upper_bound,
      issue.outputs[0].texts.category, issue.definitions, issue.based_on);
}

void join(CollapsedIssue& issue, CollapsedIssue&& other) {
  issue.severity = std::max(issue.severity, other.severity);
  issue.outputs[0].severity = issue.severity;
  issue.findings->merge(std::move(other.findings).value());
}

}  // namespace

void JoinedIssues::add(CollapsedIssue issue) {
  const std::size_t hash = hash_of(issue);
  const FlatIndex::Number found = index_.find(hash, [&](FlatIndex::Number number) {
    return what_makes_one(issue) == what_makes_one(issues_[number]);
  });
  if (found != FlatIndex::NONE) {
    join(issues_[found], std::move(issue));
    return;
  }
  index_.add(hash);
  issues_.push_back(std::move(issue));
}

std::vector<CollapsedIssue> JoinedIssues::take() {
  index_ = {};
  return std::exchange(issues_, {});
}

}  // namespace vond::standalone
