#pragma once

#include <string>
#include <vector>

#include "standalone/acknowledged/acknowledgement.h"
#include "standalone/acknowledged/acknowledgement_parser.h"

namespace vond::standalone {

/// What a file of acknowledgements holds.
struct AcknowledgementsFile {
  /// In the order of the file.
  std::vector<Acknowledgement> entries;
  /// What is wrong with lines that were left out, "FILE:LINE:COLUMN: …": the first ten, then how
  /// many more there are.
  std::vector<std::string> faults;
};

/// What becomes of a line that cannot be used.
enum class FaultyLines { REFUSED, LEFT_OUT };

/// Reads the JSON Lines at `path`, an acknowledgement a line; "-" is standard input. An empty file
/// has no entries. Throws InputError when the file cannot be read, and for a line that is refused.
AcknowledgementsFile read_acknowledgements(const std::string& path, LongestAcknowledgement longest,
                                           FaultyLines faulty_lines = FaultyLines::REFUSED);

}  // namespace vond::standalone
