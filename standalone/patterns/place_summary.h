#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vond::standalone {

/// One of the values of a place.
struct PlaceValue {
  /// As people see it.
  std::string_view text;
  /// With this value.
  std::uint64_t findings = 0;
  /// Numbers of the nodes that they name; a node may stand more than once.
  std::span<const std::uint32_t> nodes;
};

/// What the values of a place have in common.
enum class ValueKind { NUMBER, TIME, OTHER };

struct SortedValues {
  ValueKind kind = ValueKind::OTHER;
  /// What stands around every number; views of the values.
  std::string_view before;
  std::string_view behind;
  /// By number, by time, else in natural order; equal ones by bytes.
  std::vector<PlaceValue> values;
};

/// Returns the name of the node with a number; the view lives as long as the function.
using NodeNames = std::function<std::string_view(std::uint32_t)>;

/// Puts values, each once, in order. It is enough for the caller when the first `needed` of those
/// that are neither numbers nor times are in order.
SortedValues sort_values(std::vector<PlaceValue> values,
                         std::size_t needed = static_cast<std::size_t>(-1));

/// Returns what stands for a place in the text of an issue, whatever the order of its `values`,
/// each once, at least one. `has_several_nodes` tells of the whole issue.
std::string summarize_place(std::vector<PlaceValue> values, const NodeNames& node_names,
                            bool has_several_nodes);

}  // namespace vond::standalone
