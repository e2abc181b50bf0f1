#pragma once

#include <string>
#include <vector>

namespace vond::standalone {

/// A framework definition as a definitions file describes it.
struct DefinitionSpec {
  /// Full name, not empty, unique in its file.
  std::string name;
  bool skipped = false;
  std::vector<std::vector<DefinitionSpec>> child_groups;
};

/// The deepest that definitions may be nested; roots have depth 1.
inline constexpr int MAX_DEFINITION_DEPTH = 256;

/// Reads the JSON file at `path` and returns its root definitions in order. Throws InputError.
std::vector<DefinitionSpec> read_definitions(const std::string& path);

}  // namespace vond::standalone
