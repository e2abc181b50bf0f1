#pragma once

#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension.h"

namespace vond_html {

/// The report as one page to look at, which needs nothing beside itself. Needs a host that exports
/// vond::facts.
class VondHtml : public vond::postprocessor::PostprocessorExtension {
 public:
  /// Keeps a copy of `engine_data`, which shares the pointees with the engine's own.
  explicit VondHtml(vond::postprocessor::PostprocessorExtensionData& engine_data);

  /// Writes the page. Returns 0; exceptions pass to the host.
  int run() override;
};

}  // namespace vond_html

/// The library's one symbol. The caller owns the new extension.
extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data);
