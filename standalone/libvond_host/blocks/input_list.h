#pragma once

#include <string>
#include <vector>

#include "standalone/facts/report_facts.h"
#include "standalone/libvond_host/blocks/limited_text.h"

namespace vond::standalone {

/// Returns inputs with their ages as limited_list() lays lists out: "a.jsonl, 2 minutes old; b". Of
/// an input that does not fit even alone the name is cut, and never the age.
std::string limited_input_list(const ListLayout& layout,
                               const std::vector<ReportFacts::Input>& inputs);

}  // namespace vond::standalone
