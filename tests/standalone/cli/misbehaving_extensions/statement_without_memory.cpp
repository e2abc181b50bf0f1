// An extension whose second statement ends for lack of memory, in a destructor.
#include <new>

#include "vond/log/output_log.h"
#include "vond/postprocessor/postprocessor_extension.h"

using vond::postprocessor::PostprocessorExtension;
using vond::postprocessor::PostprocessorExtensionData;

namespace {

void copy_text() { throw std::bad_alloc(); }

/// As the destructor of a statement does when it cannot copy its text.
struct Statement {
  ~Statement() { copy_text(); }
};

class Extension : public PostprocessorExtension {
 public:
  explicit Extension(PostprocessorExtensionData& engine_data)
      : PostprocessorExtension(engine_data) {
    data = engine_data;
  }

  int run() override {
    vond::log::OutputLog() << "before the end\n";
    const Statement statement;
    return 0;
  }
};

}  // namespace

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Extension(data);
}
