#include "standalone/report/findings_by_text.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "standalone/text/utc_time.h"

namespace vond::standalone {

namespace {

/// Keeps the first of equal ones where it stands.
void remove_repetitions(std::vector<StringInterner::Id>& nodes) {
  std::vector<bool> seen(*std::max_element(nodes.begin(), nodes.end()) + std::size_t{1});
  std::erase_if(nodes, [&seen](StringInterner::Id node) {
    const bool is_repeated = seen[node];
    seen[node] = true;
    return is_repeated;
  });
}

}  // namespace

void FindingsByText::Places::add_nodes(std::span<const StringInterner::Id> more) {
  if (nodes.size() >= many_nodes) {
    remove_repetitions(nodes);
    many_nodes = std::max(FEWEST_MANY_NODES, 4 * nodes.size());
  }
  nodes.insert(nodes.end(), more.begin(), more.end());
}

void FindingsByText::add(const Finding& finding, std::span<const StringInterner::Id> nodes) {
  const WordingTable::Number number = wordings_.number_of(finding);
  if (number == places_.size()) {
    places_.emplace_back();
  }
  Places& places = places_[number];
  places.add_nodes(nodes);
  places.has_finding_without_node = places.has_finding_without_node || nodes.empty();
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
    auto& [nodes, row_ids, has_finding_without_node, first_seen, many_nodes] = places[number];
    issue.outputs.push_back({severity,
                             std::move(texts),
                             std::move(nodes),
                             std::move(row_ids),
                             0,
                             has_finding_without_node,
                             {},
                             first_seen});
  }
  return issues;
}

}  // namespace vond::standalone
