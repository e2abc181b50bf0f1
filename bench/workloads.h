#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "output_file.h"

namespace vond::bench {

/// Few issues, each on every node: every node reports every check in each round.
struct WideSizes {
  std::size_t nodes = 10'000;
  std::size_t checks = 100;
  std::size_t rounds = 1;
  /// What a database gives and a check on a node does not.
  bool have_row_ids = true;
};

/// Issues, and the definitions that they name.
struct IssueSizes {
  std::size_t issues;
  std::size_t definitions;
};

inline constexpr IssueSizes MANY_SIZES = {100'000, 1'000};
inline constexpr IssueSizes DEEP_SIZES = {20'000, 20'000};

/// How findings are written: as JSON Lines, or as the `node: text` lines that other tools gather.
enum class Format { JSON, NODE_LINES };

/// Findings with 80 characters of message and 85 of remedy on one node, which name one definition
/// each; the nodes report in no order, in another one each round. The names of the definitions
/// spell a tree of two levels.
void write_wide(OutputFile& findings, const WideSizes& sizes, Format format, std::uint64_t seed);

/// Distinct issues on 1 to 40 nodes that name two definitions each; every other one is a diagnosis
/// that is based on one or two of the observations.
void write_many(OutputFile& findings, OutputFile& definitions, const IssueSizes& sizes,
                std::uint64_t seed);

/// Distinct issues on 1 to 4 nodes, each under one definition of trees up to eight levels deep.
void write_deep(OutputFile& findings, OutputFile& definitions, const IssueSizes& sizes,
                std::uint64_t seed);

enum class NameShape {
  /// `node000042`, without gaps.
  ONE_AXIS,
  /// `c17n213`, some of c<1..60>n<1..400>.
  TWO_AXES,
};

/// Distinct node names in no order, a line each. Throws std::invalid_argument for more names than
/// their shape has.
void write_names(OutputFile& file, NameShape shape, std::size_t count, std::uint64_t seed);

}  // namespace vond::bench
