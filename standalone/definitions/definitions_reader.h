#pragma once

#include <string>
#include <vector>

namespace vond::standalone {

/// A framework definition as a definitions file describes it.
struct DefinitionSpec {
  /// Full name, not empty, unique in its file, made harmless.
  std::string name;
  bool skipped = false;
  std::vector<std::vector<DefinitionSpec>> child_groups;
};

/// What a definitions file holds.
struct DefinitionsFile {
  /// In the order of the file.
  std::vector<DefinitionSpec> roots;
  /// One message per unknown key, for the user to see: "FILE:LINE:COLUMN: unknown key …".
  std::vector<std::string> warnings;
};

/// The deepest that definitions may be nested; roots have depth 1.
inline constexpr int MAX_DEFINITION_DEPTH = 256;

/// Reads the JSON file at `path`; "-" is standard input. Throws InputError.
DefinitionsFile read_definitions(const std::string& path);

}  // namespace vond::standalone
