#include "standalone/report/acknowledged_facts.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>

namespace vond::standalone {
namespace {

using State = ReportFacts::Acknowledgement::State;

/// Whether all nodes that the entry names were looked at, so that what it covers would be there.
bool was_examined(const Acknowledgement& entry, const ReportFacts& facts) {
  if (!facts.examination) {
    return false;
  }
  if (entry.is_everywhere) {
    return !facts.expectation || facts.expectation->silent.empty();
  }
  const std::vector<std::string>& examined = facts.examination->names;
  return std::includes(examined.begin(), examined.end(), entry.nodes.begin(), entry.nodes.end());
}

State state_of(const AcknowledgedFindings& acknowledged, std::size_t number,
               const ReportFacts& facts) {
  if (!acknowledged.holds(number)) {
    return State::EXPIRED;
  }
  return acknowledged.is_used(number) || !was_examined(acknowledged.entries()[number], facts)
             ? State::ACTIVE
             : State::UNUSED;
}

/// An id that is acknowledged was reported.
void forget_acknowledged_ids(std::vector<std::string>& ids,
                             const AcknowledgedFindings& acknowledged) {
  const std::set<std::string, std::less<>> reported = acknowledged.ids_of_observations();
  ids.erase(std::remove_if(ids.begin(), ids.end(),
                           [&](const std::string& id) { return reported.contains(id); }),
            ids.end());
}

}  // namespace

void add_facts_of_acknowledged(ReportFacts& facts, const CheckRun& run) {
  if (run.acknowledged() == nullptr) {
    return;
  }
  const AcknowledgedFindings& acknowledged = *run.acknowledged();
  facts.findings_acknowledged = run.findings_read() - run.collapser().findings();
  forget_acknowledged_ids(facts.unknown_based_on, acknowledged);
  ReportFacts::Acknowledged told{.issues = acknowledged.issues().size(),
                                 .nodes = acknowledged.node_names().sorted()};
  told.entries.reserve(acknowledged.entries().size());
  for (std::size_t number = 0; number < acknowledged.entries().size(); ++number) {
    const Acknowledgement& entry = acknowledged.entries()[number];
    told.entries.push_back({entry.id, entry.nodes, entry.until, entry.reason, entry.by,
                            state_of(acknowledged, number, facts), acknowledged.is_back(number)});
  }
  facts.acknowledged = std::move(told);
}

}  // namespace vond::standalone
