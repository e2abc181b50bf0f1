#pragma once

#include <memory>
#include <string>
#include <vector>

#include "standalone/acknowledged/acknowledgements_reader.h"
#include "standalone/definitions/definitions_reader.h"
#include "standalone/report/check_run.h"

/// Reading, with messages for the user on standard error.
namespace vond::standalone {

/// Reads the file of definitions at `path` and prints its warnings. Throws InputError.
DefinitionsFile read_definitions_with_messages(const std::string& path);

/// Reads the file of acknowledgements at `path` and prints what is wrong with lines that were left
/// out as warnings. Throws InputError.
AcknowledgementsFile read_acknowledgements_with_messages(const std::string& path,
                                                         LongestAcknowledgement longest,
                                                         FaultyLines faulty_lines);

/// Reads a run. Shows progress, and prints warnings, the lines that are left out, and which inputs
/// are of no use. Throws InputError, also when there are lines of which not one can be used.
std::unique_ptr<CheckRun> read_run_with_messages(const RunSources& sources);

}  // namespace vond::standalone
