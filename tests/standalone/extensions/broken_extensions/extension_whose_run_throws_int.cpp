#include "witness.h"

using vond::postprocessor::PostprocessorExtension;

namespace {

class Failing : public witness::Extension {
 public:
  using Extension::Extension;
  int run() override {
    Extension::run();
    throw 42;
  }
};

}  // namespace

extern "C" VOND_HOST_API PostprocessorExtension* create(witness::Data& record) {
  return new Failing(record);
}
