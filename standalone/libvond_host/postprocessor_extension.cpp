#include "vond/postprocessor/postprocessor_extension.h"

namespace vond::postprocessor {

PostprocessorExtension::PostprocessorExtension(PostprocessorExtensionData& /*engine_data*/) {}

PostprocessorExtension::~PostprocessorExtension() = default;

}  // namespace vond::postprocessor
