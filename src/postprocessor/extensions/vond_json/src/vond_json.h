#pragma once

#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension.h"

namespace vond_json {

/// The report as one JSON object, for programs. Needs a host that exports vond::facts.
class VondJson : public vond::postprocessor::PostprocessorExtension {
 public:
  /// Keeps a copy of `engine_data`, which shares the pointees with the engine's own.
  explicit VondJson(vond::postprocessor::PostprocessorExtensionData& engine_data);
  ~VondJson() override;

  /// Writes the object. Returns 0. Exceptions of the host's operations pass through; the text then
  /// lacks its end.
  int run() override;
};

}  // namespace vond_json

/// The library's one symbol. The caller owns the new extension.
extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data);
