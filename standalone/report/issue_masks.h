#pragma once

#include "standalone/report/collapser.h"
#include "vond/postprocessor/severity.h"

namespace vond::standalone {

/// The masks of an issue: its severity band, FAIL_BIT where that band contributes to FAIL, and a
/// type code. `fail_threshold` is on the severity scale, 0 to 100.

/// Whether issues whose highest severity this is contribute to FAIL.
bool contributes_to_fail(int severity, int fail_threshold);

/// Returns the mask that the record files an issue under.
postprocessor::SeverityMask file_mask(const CollapsedIssue& issue, int fail_threshold);

/// Returns the mask that a definition counts an issue under: observations of every kind together.
postprocessor::SeverityMask definition_count_mask(const CollapsedIssue& issue, int fail_threshold);

/// Returns the mask that the record counts an issue under: as definitions do, all bands together.
postprocessor::SeverityMask total_count_mask(const CollapsedIssue& issue, int fail_threshold);

}  // namespace vond::standalone
