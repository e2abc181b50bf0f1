#pragma once

#include "standalone/cli/extension_choice.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::standalone {

/// Runs an extension in this process, and lets no fault of it pass for a whole text. Throws
/// ExtensionError when it fails, and std::bad_alloc at its end when it lacked memory: from the
/// first lack on nothing is written any more, to any destination.
void run_checked(const ChosenExtension& extension,
                 postprocessor::PostprocessorExtensionData& record);

}  // namespace vond::standalone
