#pragma once

#include "standalone/cli/options.h"

namespace vond::standalone {

/// Throws UsageError when an output would take the place of an input or of another output, or when
/// there is nothing to write to one.
void refuse_conflicting_outputs(const Options& options);

}  // namespace vond::standalone
