#pragma once

#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension_data.h"
#include "vond/util/non_deep_copyable.h"

namespace vond::postprocessor {

/// The base of every output extension. The host gets an extension from the factory of its library,
/// runs it once and deletes it before it closes the library. The order of the virtual operations is
/// part of the binary contract.
class VOND_HOST_API PostprocessorExtension : public util::NonDeepCopyable<PostprocessorExtension> {
 public:
  /// Leaves `data` empty: every extension assigns its own copy.
  explicit PostprocessorExtension(PostprocessorExtensionData& engine_data);
  PostprocessorExtension(const PostprocessorExtension&) = delete;
  PostprocessorExtension& operator=(const PostprocessorExtension&) = delete;
  virtual ~PostprocessorExtension();

  /// Writes the extension's output. Returns 0 on success, 1 on failure.
  virtual int run() = 0;

 protected:
  /// The extension's own copy of the engine's record.
  PostprocessorExtensionData data;
};

}  // namespace vond::postprocessor
