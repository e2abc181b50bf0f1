#include "standalone/report/joined_issues.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "standalone/model/severity_scale.h"
#include "standalone/text/text_hash.h"

namespace vond::standalone {
namespace {

/// Returns a hash of what differs between most issues.
std::size_t hash_of(const CollapsedIssue& issue) {
  return mixed(hash_of_text(issue.id), hash_of_text(issue.findings->key()));
}

auto what_makes_one(const CollapsedIssue& issue) {
  // Whatever else an issue has: does it keep issues apart?
  const auto& [type, id, severity, definitions, based_on, outputs, distinct_nodes, findings] =
      issue;
  return std::tuple<const std::string&, const std::string&, postprocessor::TypeCode, int,
                    const std::string&, const std::vector<std::string>&,
                    const std::vector<std::string>&>(
      id, findings->key(), type, band_of(severity).upper_bound, outputs[0].texts.category,
      definitions, based_on);
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
