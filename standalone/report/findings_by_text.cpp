#include "standalone/report/findings_by_text.h"
#include "standalone/text/utc_time.h"

#include <cstddef>
#include <utility>

namespace vond::standalone {

void FindingsByText::add(const Finding& finding, std::span<const StringInterner::Id> nodes) {
  const WordingTable::Number number = wordings_.number_of(finding);
  if (number == places_.size()) {
    places_.emplace_back();
  }
  Places& places = places_[number];
  places.nodes.insert(places.nodes.end(), nodes.begin(), nodes.end());
  places.row_ids.insert(places.row_ids.end(), finding.row_ids.begin(), finding.row_ids.end());
  places.first_seen = earliest(places.first_seen, finding.first_seen);
}

std::vector<CollapsedIssue> FindingsByText::finish() {
  std::vector<OwnedWording> wordings = wordings_.take();
  std::vector<Places> places = std::exchange(places_, {});
  std::vector<CollapsedIssue> issues;
  issues.reserve(wordings.size());
  for (std::size_t number = 0; number < wordings.size(); ++number) {
    auto& [type, id, severity, texts, definitions, based_on] = wordings[number];
    CollapsedIssue& issue = issues.emplace_back(CollapsedIssue{
        type, std::move(id), severity, std::move(definitions), std::move(based_on), {}, 0});
    auto& [nodes, row_ids, first_seen] = places[number];
    issue.outputs.push_back(
        {severity, std::move(texts), std::move(nodes), std::move(row_ids), 0, {}, first_seen});
  }
  return issues;
}

}  // namespace vond::standalone
