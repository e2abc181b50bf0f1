#pragma once

#include <ctime>
#include <limits>
#include <optional>
#include <vector>

#include "standalone/comparison/seen_names.h"

/// What a run of the checks has seen. All numbers are those of one SeenNames.
namespace vond::standalone {

/// Later than any other, so that the earliest of several times is one that is known.
inline constexpr std::time_t UNKNOWN_TIME = std::numeric_limits<std::time_t>::max();

/// An issue on a node.
struct Sighting {
  SeenNames::Number node = SeenNames::NO_NODE;
  SeenNames::Number pattern = 0;
  std::time_t first_seen = UNKNOWN_TIME;
};

struct SeenIssue {
  SeenNames::Number condition = 0;
  /// The upper bound of its severity band.
  int band = 0;
  /// A node may stand in several that differ in their patterns. None where all are acknowledged.
  std::vector<Sighting> sightings = {};
};

struct RunSightings {
  /// Worst first.
  std::vector<SeenIssue> issues = {};
  /// What would be, or have been, issues but for an acknowledgement.
  std::vector<SeenIssue> acknowledged = {};
  /// Those that were looked at, each once; NO_NODE among them when what names no node would have
  /// been seen. Nothing when the run does not tell.
  std::optional<std::vector<SeenNames::Number>> examined = std::nullopt;
  /// When it was.
  std::time_t time = UNKNOWN_TIME;
};

}  // namespace vond::standalone
