#pragma once

#include "vond/vocabulary/severity_band_table.h"
#include "vond/vocabulary/tables.h"

namespace vond::vocabulary {

/// Not constant: an inserting lookup of an unknown name adds a row of zeros to this file's copy.
static SeverityBandTable SEVERITY_BANDS = standard_bands();

}  // namespace vond::vocabulary
