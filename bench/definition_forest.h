#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "output_file.h"
#include "random_numbers.h"

namespace vond::bench {

/// Framework definitions for a definitions file. The trees are of one size, so that twice as many
/// definitions are twice the work and not a deeper tree.
class DefinitionForest {
 public:
  struct Shape {
    std::size_t definitions;
    std::size_t definitions_per_root;
    /// Roots have depth 1.
    std::size_t max_depth;
  };

  DefinitionForest(const Shape& shape, RandomNumbers& random);

  const std::string& random_name(RandomNumbers& random) const { return random.pick(nodes_).name; }

  /// Writes the definitions file.
  void write(OutputFile& file) const;

 private:
  struct Node {
    std::string name;
    std::size_t depth;
    bool skipped;
    std::vector<std::size_t> children;
  };

  void add_root(RandomNumbers& random);
  void add_child(std::size_t first, const Shape& shape, RandomNumbers& random);
  void write_list(OutputFile& file, const std::vector<std::size_t>& list) const;
  void write_children(OutputFile& file, const std::vector<std::size_t>& children) const;

  std::vector<Node> nodes_;
  std::vector<std::size_t> roots_;
};

}  // namespace vond::bench
