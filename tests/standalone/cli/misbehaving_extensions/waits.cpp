// An extension that waits for a signal that ends the program.
#include <unistd.h>

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
    vond::log::OutputLog() << "waiting\n";
    pause();
    return 1;
  }
};

}  // namespace

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Extension(data);
}
