#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

/// What stands around findings that were written by a program which collapsed them before: the
/// first and the last line of what it wrote. Several of these may stand in one input, one after the
/// other or mixed, where their files were put together.
namespace vond::standalone {

struct RunBegin {
  /// When the findings were collected.
  std::time_t written_at = 0;
  /// The parts of the cluster that they come from, "rack07" for example.
  std::vector<std::string> parts;
};

struct RunEnd {
  /// How many findings the lines stand for: the sum of their counts.
  std::uint64_t findings = 0;
  /// How many lines could not be used when the findings were collapsed.
  std::uint64_t lines_rejected = 0;
  /// Whether all inputs of that run had their ends.
  bool is_complete = false;
  /// How many nodes were examined; 0 when nobody told.
  std::uint64_t examined = 0;
};

}  // namespace vond::standalone
