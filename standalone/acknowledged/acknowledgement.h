#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "standalone/model/severity_scale.h"

namespace vond::standalone {

/// Findings that are known, and need not be told until some day.
struct Acknowledgement {
  /// Of the findings, with its #qualifier.
  std::string id;
  /// Sorted, each once; empty for every node.
  std::vector<std::string> nodes;
  /// Every node is meant, and findings without nodes.
  bool is_everywhere = false;
  /// The last second in which it holds.
  std::time_t until = 0;
  /// Not empty.
  std::string reason;
  /// Who says so, "" when nobody is named.
  std::string by = {};
  /// The highest severity that it covers.
  int up_to = HIGHEST_SEVERITY;
  /// What a diagnosis is based on is covered with it.
  bool with_observations = false;

  bool holds_at(std::time_t time) const { return time <= until; }

  bool operator==(const Acknowledgement&) const = default;
};

}  // namespace vond::standalone
