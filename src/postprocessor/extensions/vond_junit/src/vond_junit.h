#pragma once

#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension.h"

namespace vond_junit {

/// The report as test results that a pipeline reads.
class VondJunit : public vond::postprocessor::PostprocessorExtension {
 public:
  /// Keeps a copy of `engine_data`, which shares the pointees with the engine's own.
  explicit VondJunit(vond::postprocessor::PostprocessorExtensionData& engine_data);

  /// Writes all suites. Returns 0; exceptions pass to the host.
  int run() override;
};

}  // namespace vond_junit

/// The library's one symbol. The caller owns the new extension.
extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data);
