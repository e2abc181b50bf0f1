#pragma once

#include <string>
#include <vector>

#include "standalone/model/definition_spec.h"

namespace vond::standalone {

/// What a definitions file holds.
struct DefinitionsFile {
  /// In the order of the file.
  std::vector<DefinitionSpec> roots;
  /// One message per unknown key, for the user to see: "FILE:LINE:COLUMN: unknown key …".
  std::vector<std::string> warnings;
};

/// Reads the JSON file at `path`; "-" is standard input. Throws InputError.
DefinitionsFile read_definitions(const std::string& path);

}  // namespace vond::standalone
