#pragma once

#include <optional>
#include <string>
#include <vector>

#include "standalone/cli/options.h"

namespace vond::standalone {

/// An extension that is to run.
struct ChosenExtension {
  /// For messages: the extension's name, or its library as the user named it.
  std::string name;
  /// Of its library.
  std::string path;
  /// Where its output goes alone; "-" is standard output. Nothing for standard output and all
  /// files that have no extension of their own.
  std::optional<std::string> file;
};

/// Finds the libraries of `requests`; of none, that of the text report. Throws UsageError for a
/// name that no extension has.
std::vector<ChosenExtension> choose_extensions(const std::vector<ExtensionRequest>& requests);

/// Returns a line for each extension that can be named: its name, a tab, its library.
std::string list_extensions();

}  // namespace vond::standalone
