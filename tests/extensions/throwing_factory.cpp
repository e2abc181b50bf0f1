// An extension whose factory throws.
#include <stdexcept>

#include "vond/postprocessor/postprocessor_extension.h"

using vond::postprocessor::PostprocessorExtension;
using vond::postprocessor::PostprocessorExtensionData;

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& /*data*/) {
  throw std::runtime_error("no template");
}
