#pragma once

#include <string>
#include <vector>

#include "vond/extension/statement.h"
#include "vond/facts/run_facts.h"

namespace vond_findings {

/// Writes what findings said as a line, or as several where one would be too long to be read again:
/// the first has the count, the others 0.
void write_finding(vond::extension::StatementWriter& output, const vond::facts::Finding& finding);

/// Writes the nodes that were examined, in lines as above.
void write_examined(vond::extension::StatementWriter& output,
                    const std::vector<std::string>& nodes);

}  // namespace vond_findings
