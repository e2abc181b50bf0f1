// An extension whose factory makes nothing.
#include "vond/postprocessor/postprocessor_extension.h"

using vond::postprocessor::PostprocessorExtension;
using vond::postprocessor::PostprocessorExtensionData;

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& /*data*/) {
  return nullptr;
}
