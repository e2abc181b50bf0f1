#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/vocabulary/severity_band_table.h"

namespace vond_html {

/// What the report knows of a node.
struct NodeState {
  std::string name;
  bool is_examined = true;
  /// Whether it has issues that are acknowledged, which `issues` does not count.
  bool is_acknowledged = false;
  /// How many issues it has.
  std::size_t issues = 0;
  /// The first of these in the order of the report; null without issues.
  const vond::postprocessor::CollapsedAnalysisOutput* worst = nullptr;
  /// The band of `worst`.
  std::optional<vond::vocabulary::SeverityBand> band = std::nullopt;
};

/// Nodes that stand together.
struct NodeGroup {
  /// Their rack or, of nodes without one, what stands before the first digit of their names; "" for
  /// nodes with which no other begins alike, and for numbers.
  std::string name;
  /// In natural order, cn9 before cn10.
  std::vector<NodeState> nodes;
};

/// Returns whether a name comes before another where numbers in them count as numbers.
bool comes_before(std::string_view left, std::string_view right);

/// Returns all nodes that issues name, that were examined, or that should have been; the racks in
/// their order, then the others by their names, the group without a name last.
std::vector<NodeGroup> group_nodes(const vond::postprocessor::PostprocessorExtensionData& data,
                                   const vond::vocabulary::SeverityBandTable& bands);

}  // namespace vond_html
