// An extension that ends the program in the middle of its report.
#include <exception>

#include "vond/log/output_log.h"
#include "vond/postprocessor/postprocessor_extension.h"

using vond::postprocessor::PostprocessorExtension;
using vond::postprocessor::PostprocessorExtensionData;

namespace {

class Extension : public PostprocessorExtension {
 public:
  explicit Extension(PostprocessorExtensionData& engine_data)
      : PostprocessorExtension(engine_data) {
    data = engine_data;
  }

  int run() override {
    vond::log::OutputLog() << "before the end\n";
    std::terminate();
  }
};

}  // namespace

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Extension(data);
}
