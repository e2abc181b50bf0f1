#pragma once

#include <cstddef>
#include <cstdint>

#include "output_file.h"

namespace vond::bench {

/// Every node reports every check in each round, and what a check measured stands in its message.
struct NumbersSizes {
  std::size_t nodes = 10'000;
  std::size_t checks = 40;
  std::size_t rounds = 1;
  /// What a database gives and a check on a node does not.
  bool have_row_ids = true;
  /// Whether messages name their node; else they say localhost.
  bool have_names = true;
};

/// Findings on one node each, in no order within their round, whose messages name the node and hold
/// measured values: of every other check the temperature of a GPU, of the others how full a disk
/// is. Each check has one node whose value stands out.
void write_numbers(OutputFile& findings, const NumbersSizes& sizes, std::uint64_t seed);

}  // namespace vond::bench
