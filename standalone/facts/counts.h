#pragma once

#include <string>
#include <vector>

#include "standalone/facts/report_facts.h"

namespace vond::standalone {

/// Returns "1 of 48 expected nodes was not examined", or that they are silent when nobody told
/// which nodes were examined. The report must have an expectation.
std::string count_of_silent_nodes(const ReportFacts& facts);

/// Returns the names of the inputs of which `flag`, a member of ReportFacts::Input, is true.
std::vector<std::string> names_of_inputs(const ReportFacts& facts, bool ReportFacts::Input::*flag);

/// Returns the names of inputs that gave nothing, where there are several. A single one has its own
/// doubts: nothing was looked at, lines were left out.
std::vector<std::string> names_of_useless_inputs(const ReportFacts& facts);

/// Returns "7 lines of input were left out".
std::string count_of_rejected_lines(const ReportFacts& facts);

}  // namespace vond::standalone
