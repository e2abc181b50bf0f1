#pragma once

#include <string>
#include <vector>

namespace vond::standalone {

/// The deepest that definitions may be nested; roots have depth 1.
inline constexpr int MAX_DEFINITION_DEPTH = 256;

/// A framework definition as a definitions file describes it.
struct DefinitionSpec {
  /// Full name, not empty, unique in its file, made harmless.
  std::string name;
  bool skipped = false;
  std::vector<std::vector<DefinitionSpec>> child_groups;
};

}  // namespace vond::standalone
