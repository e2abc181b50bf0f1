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
  /// How many issues it has.
  std::size_t issues = 0;
  /// The first of these in the order of the report; null without issues.
  const vond::postprocessor::CollapsedAnalysisOutput* worst = nullptr;
  /// The band of `worst`.
  std::optional<vond::vocabulary::SeverityBand> band = std::nullopt;
};

/// Nodes whose names begin alike.
struct NodeGroup {
  /// What stands before the first digit; "" for nodes with which no other begins alike.
  std::string prefix;
  /// In natural order, cn9 before cn10.
  std::vector<NodeState> nodes;
};

/// Returns whether a name comes before another where numbers in them count as numbers.
bool comes_before(std::string_view left, std::string_view right);

/// Returns all nodes that issues name, that were examined, or that should have been; the groups in
/// the order of their prefixes, the one without a prefix last.
std::vector<NodeGroup> group_nodes(const vond::postprocessor::PostprocessorExtensionData& data,
                                   const vond::vocabulary::SeverityBandTable& bands);

}  // namespace vond_html
