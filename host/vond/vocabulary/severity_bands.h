#pragma once

#include "vond/vocabulary/severity_band_table.h"
#include "vond/vocabulary/tables.h"

namespace vond::vocabulary {

/// Not constant: an inserting lookup of an unknown name adds a row of zeros to this file's copy.
static SeverityBandTable SEVERITY_BANDS = {
    {"informational", {0, 24, postprocessor::Severity::INFORMATIONAL}},
    {"warning", {25, 74, postprocessor::Severity::WARNING}},
    {"critical", {75, 100, postprocessor::Severity::CRITICAL}},
};

}  // namespace vond::vocabulary
