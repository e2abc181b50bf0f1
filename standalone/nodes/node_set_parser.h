#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "standalone/nodes/node_set.h"

namespace vond::standalone {

/// The numbers of a range, or a single one.
struct NumberRange {
  /// The first number as it is written; the others are written like it.
  std::string_view first;
  std::uint64_t count;
  std::uint64_t step;
};

/// A part of a name: text or, where there are ranges, the numbers in brackets.
struct NamePart {
  std::string_view text;
  std::vector<NumberRange> ranges;
  /// How many texts it stands for; where that is more than any node set may have, some such number.
  std::uint64_t count = 1;
  /// That of the longest of these texts.
  std::uint64_t length = 0;
};

/// What stands between two separators of a node set.
using NodeSetTerm = std::vector<NamePart>;

/// Reads a node set into its terms, which are views of it. Throws NodeSetError as
/// expand_node_set() does, which tells what may be written.
std::vector<NodeSetTerm> parse_node_set(std::string_view text, Blanks blanks);

}  // namespace vond::standalone
