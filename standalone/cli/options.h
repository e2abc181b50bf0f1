#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "standalone/report/collapser.h"

namespace vond::standalone {

/// Which issues that contribute to FAIL make the exit status 1.
enum class FailOn {
  ANY,
  /// Those that are new, worse or reworded.
  WORSE,
  /// Those that are new.
  NEW,
};

enum class ColorMode { AUTO, ALWAYS, NEVER };

/// An output extension that is asked for.
struct ExtensionRequest {
  /// Its name, or the path of its library, which has a "/".
  std::string extension;
  /// Where its output goes alone, "-" for standard output.
  std::optional<std::string> file;
};

/// What the command line asks for.
struct Options {
  /// "-" is standard input; never empty.
  std::vector<std::string> inputs;
  std::optional<std::string> definitions;
  /// On the severity scale, 0 to 100.
  int fail_threshold = 75;
  CollapseBy collapse_by = CollapseBy::PATTERN;
  /// Whether a line that cannot be used ends everything.
  bool is_strict = false;
  /// Names of nodes that were looked at.
  std::vector<std::string> examined;
  /// Names of nodes that should have been looked at.
  std::vector<std::string> expected;
  /// Files of node sets that should have been looked at, too; "-" is standard input.
  std::vector<std::string> expect_files;
  /// The part of the cluster that this run is about, "" when nobody named it.
  std::string part;
  /// Names of parts of the cluster whose findings should be there.
  std::vector<std::string> expected_parts;
  /// Files of findings of earlier runs; "-" is standard input.
  std::vector<std::string> since;
  FailOn fail_on = FailOn::ANY;
  /// The file of what is acknowledged, "-" for standard input.
  std::optional<std::string> acknowledged;
  /// How many days an acknowledgement may reach ahead.
  int acknowledge_at_most = 90;
  /// Whether the report is to show what is acknowledged all the same.
  bool ignores_acknowledged = false;
  /// The file that tells which nodes stand together, "-" for standard input.
  std::optional<std::string> racks;
  /// In terminal columns, 0 for no wrapping; without a value standard output decides.
  std::optional<int> width;
  /// A name of the log level table.
  std::string log_level = "warning";
  bool syslog = false;
  ColorMode color = ColorMode::AUTO;
  /// Files that get the report beside standard output.
  std::vector<std::string> outputs;
  /// Empty for the text report.
  std::vector<ExtensionRequest> extensions;
};

/// A text that was asked for in place of a report, as --help does.
struct Information {
  std::string text;
};

/// The names of all extensions were asked for.
struct ExtensionListing {};

/// What a command line may ask for.
using Request = std::variant<Options, Information, ExtensionListing>;

/// Reads the command line. `input_is_terminal` tells that standard input is nothing to read
/// findings from. Throws UsageError.
Request parse_options(int argc, const char* const* argv, bool input_is_terminal);

}  // namespace vond::standalone
