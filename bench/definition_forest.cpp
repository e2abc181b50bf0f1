#include "definition_forest.h"

#include "vocabulary.h"

namespace vond::bench {

namespace {

constexpr std::size_t NUMBER_WIDTH = 5;
/// Of how many definitions one is skipped.
constexpr std::size_t SKIPPED_SHARE = 50;
/// From how many children on they are split into two groups.
constexpr std::size_t TWO_GROUPS = 4;

}  // namespace

DefinitionForest::DefinitionForest(const Shape& shape, RandomNumbers& random) {
  nodes_.reserve(shape.definitions);
  while (nodes_.size() < shape.definitions) {
    if (nodes_.size() % shape.definitions_per_root == 0) {
      add_root(random);
    } else {
      add_child(roots_.back(), shape, random);
    }
  }
}

void DefinitionForest::add_root(RandomNumbers& random) {
  roots_.push_back(nodes_.size());
  nodes_.push_back({make_name(random, nodes_.size(), NUMBER_WIDTH), 1, false, {}});
}

void DefinitionForest::add_child(std::size_t first, const Shape& shape, RandomNumbers& random) {
  std::size_t parent = 0;
  do {
    parent = first + random.below(nodes_.size() - first);
  } while (nodes_[parent].depth == shape.max_depth);
  nodes_[parent].children.push_back(nodes_.size());
  nodes_.push_back({nodes_[parent].name + "/" + make_name(random, nodes_.size(), NUMBER_WIDTH),
                    nodes_[parent].depth + 1,
                    random.below(SKIPPED_SHARE) == 0,
                    {}});
}

void DefinitionForest::write(OutputFile& file) const {
  file << "{\"definitions\": ";
  write_list(file, roots_);
  file << "}\n";
}

void DefinitionForest::write_list(OutputFile& file, const std::vector<std::size_t>& list) const {
  file << "[";
  for (const std::size_t index : list) {
    const Node& node = nodes_[index];
    file << (index == list.front() ? "\n" : ",\n") << R"({"name": ")" << node.name << "\"";
    if (node.skipped) {
      file << R"(, "skipped": true)";
    }
    if (!node.children.empty()) {
      write_children(file, node.children);
    }
    file << "}";
  }
  file << "]";
}

void DefinitionForest::write_children(OutputFile& file,
                                      const std::vector<std::size_t>& children) const {
  file << R"(, "children": )";
  if (children.size() < TWO_GROUPS) {
    return write_list(file, children);
  }
  const auto middle = children.begin() + static_cast<std::ptrdiff_t>(children.size() / 2);
  file << "[";
  write_list(file, {children.begin(), middle});
  file << ", ";
  write_list(file, {middle, children.end()});
  file << "]";
}

}  // namespace vond::bench
