// What is asked of this extension must be nothing but its contract.
#include <cstdlib>

#include "vond/contract.h"
#include "witness.h"

constexpr int ANOTHER_VERSION = VOND_CONTRACT_VERSION + 1;
#undef VOND_CONTRACT_VERSION
#define VOND_CONTRACT_VERSION ANOTHER_VERSION
VOND_EXPORT_CONTRACT;

extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    witness::Data& /*record*/) {
  std::abort();
}
