// An extension whose second of three statements loses a part to a lack of memory, which the stream
// swallows.
#include <new>
#include <ostream>

#include "vond/log/output_log.h"
#include "vond/postprocessor/postprocessor_extension.h"

using vond::postprocessor::PostprocessorExtension;
using vond::postprocessor::PostprocessorExtensionData;

namespace {

/// What cannot be written without more memory than there is.
struct Hungry {};

std::ostream& operator<<(std::ostream& stream, Hungry /*value*/) {
  try {
    const volatile std::size_t too_much = std::size_t{1} << 62;
    delete[] new char[too_much];
  } catch (const std::bad_alloc&) {
    stream.setstate(std::ios::badbit);
  }
  return stream;
}

class Extension : public PostprocessorExtension {
 public:
  explicit Extension(PostprocessorExtensionData& engine_data)
      : PostprocessorExtension(engine_data) {
    data = engine_data;
  }

  int run() override {
    vond::log::OutputLog() << "before the shortage\n";
    vond::log::OutputLog() << "a statement " << Hungry() << "with a gap\n";
    vond::log::OutputLog() << "End of report.\n";
    return 0;
  }
};

}  // namespace

extern "C" VOND_HOST_API PostprocessorExtension* create(PostprocessorExtensionData& data) {
  return new Extension(data);
}
