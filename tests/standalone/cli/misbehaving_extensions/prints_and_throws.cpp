// An extension that fails after some text, with an exception that holds an escape sequence.
#include <stdexcept>

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
    vond::log::OutputLog() << "before the fault\n";
    throw std::runtime_error("no \033[31mtemplate");
  }
};

}  // namespace

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Extension(data);
}
