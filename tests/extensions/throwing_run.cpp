// An extension whose report throws an exception of its own.
#include <exception>

#include "vond/postprocessor/postprocessor_extension.h"

using vond::postprocessor::PostprocessorExtension;
using vond::postprocessor::PostprocessorExtensionData;

namespace {

// Goes with the library, its text included.
class TemplateError : public std::exception {
 public:
  const char* what() const noexcept override { return "no template"; }
};

class Extension : public PostprocessorExtension {
 public:
  explicit Extension(PostprocessorExtensionData& engine_data)
      : PostprocessorExtension(engine_data) {
    data = engine_data;
  }
  int run() override { throw TemplateError(); }
};

}  // namespace

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Extension(data);
}
