#pragma once

#include <ctime>
#include <vector>

#include "standalone/comparison/earlier_sightings.h"
#include "standalone/comparison/sightings.h"

namespace vond::standalone {

/// What has become of an issue since earlier runs. A condition on a node is added when the node did
/// not have it, and healed when the node had it, was examined this time, and has it no more.
enum class Change {
  /// No node had the condition.
  NEW,
  /// Nodes were added, or are in a higher severity band than before.
  WORSE,
  /// Not worse, and on a node whose band is what it was the texts have a pattern that they did not
  /// have there.
  REWORDED,
  SAME,
  /// Nothing of the above, and nodes are healed or in a lower band.
  BETTER,
};

struct IssueChange {
  Change change = Change::SAME;
  /// Sorted, each once, NO_NODE possibly among them.
  std::vector<SeenNames::Number> added = {};
  /// As above. Of nodes whose condition has several issues now, they stand with the one that has
  /// the pattern of what they had, else with the worst.
  std::vector<SeenNames::Number> healed = {};
  /// When the condition was first seen on a node of the issue.
  std::time_t first_seen = UNKNOWN_TIME;
};

/// A condition that was there, with the nodes that had it, and that no node is known to have now.
struct PastCondition {
  SeenNames::Number condition = 0;
  /// Sorted, each once, NO_NODE possibly among them.
  std::vector<SeenNames::Number> nodes = {};
  /// The upper bound of the highest severity band.
  int band = 0;
  /// When it was first seen.
  std::time_t first_seen = UNKNOWN_TIME;
};

struct Comparison {
  /// One for each issue of the run.
  std::vector<IssueChange> issues = {};
  /// All of their nodes are healed. The worst first: in the order of bands, numbers of nodes, ids.
  std::vector<PastCondition> gone = {};
  /// On some of their nodes nobody looked, or the check lacked data. In the same order.
  std::vector<PastCondition> not_looked_at = {};
  /// The nodes of all conditions that were there and on which nobody looked whether they still are.
  /// Sorted, each once, without NO_NODE.
  std::vector<SeenNames::Number> nodes_not_looked_at = {};
};

/// Compares a run with earlier ones. Nothing heals in a run that does not tell whom it examined.
/// What is acknowledged now takes no part. `names` numbers what both name.
Comparison compare(const EarlierSightings& earlier, const RunSightings& run,
                   const SeenNames& names);

}  // namespace vond::standalone
