#include "vond/contract.h"
#include "witness.h"

VOND_EXPORT_CONTRACT;

using vond::postprocessor::PostprocessorExtension;

extern "C" VOND_HOST_API PostprocessorExtension* create(witness::Data& record) {
  return new witness::Extension(record);
}
