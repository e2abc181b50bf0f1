#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "standalone/patterns/pattern_issue.h"
#include "standalone/patterns/pattern_summaries.h"
#include "standalone/patterns/place_summary.h"

namespace vond::standalone {

/// What stands in the texts of an issue where its findings differ: a place, or NODE.
struct Placeholder {
  enum class Kind { NUMBER, TIME, TEXT, NODE };

  struct Value {
    /// As people see it.
    std::string text;
    /// Numbers of nodes, sorted, each once.
    std::vector<std::uint32_t> nodes;
  };

  Kind kind = Kind::TEXT;
  /// What stands behind every number.
  std::string unit;
  /// Each once. Numbers and times in their order, the rest in natural order.
  std::vector<Value> values;
};

/// Returns the placeholders of all texts of an issue, from left to right.
std::vector<Placeholder> placeholders_of(const PatternIssue& issue, PatternSummaries& summaries,
                                         const NodeNames& node_names);

/// Returns each text of the issue with `<*>` for its places and `NODE` for the own node of several.
std::vector<std::string> shown_patterns(const PatternIssue& issue);

}  // namespace vond::standalone
