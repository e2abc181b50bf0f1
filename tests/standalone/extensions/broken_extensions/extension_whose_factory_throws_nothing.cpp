#include <stdexcept>

#include "witness.h"

using vond::postprocessor::PostprocessorExtension;

extern "C" VOND_HOST_API PostprocessorExtension* create(witness::Data& record) {
  witness::library.open(record);
  throw std::runtime_error("");
}
