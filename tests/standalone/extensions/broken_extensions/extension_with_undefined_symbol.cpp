#include "witness.h"

using vond::postprocessor::PostprocessorExtension;

void defined_nowhere();

extern "C" VOND_HOST_API PostprocessorExtension* create(witness::Data& record) {
  defined_nowhere();
  return new witness::Extension(record);
}
