#pragma once

#include "standalone/cli/options.h"

namespace vond::standalone {

/// Throws UsageError when an output would take the place of an input, of another output or of
/// standard output, or when there is nothing to write to one.
void refuse_conflicting_outputs(const Options& options);

}  // namespace vond::standalone
