#pragma once

#include <cstddef>
#include <vector>

#include "vond/extension/json_writer.h"
#include "vond/facts/run_facts.h"

namespace vond_html {

/// How many values of a place stand at either end of its list.
inline constexpr std::size_t MOST_VALUES = 5;
/// In bytes.
inline constexpr std::size_t LONGEST_UNIT = 30;
/// In bytes: of the nodes that have a value.
inline constexpr std::size_t LONGEST_VALUE_NODES = 300;

/// Returns how many nodes have a number in each of equally wide parts of what lies between the
/// least and the greatest; nothing for a place that has other values than numbers, or one alone.
std::vector<std::size_t> spread_of(const vond::facts::Place& place);

/// Writes the places where findings of an issue differ: of each its first and its last values and,
/// of numbers, how they spread.
void write_places(vond::extension::JsonWriter& json, const std::vector<vond::facts::Place>& places);

}  // namespace vond_html
