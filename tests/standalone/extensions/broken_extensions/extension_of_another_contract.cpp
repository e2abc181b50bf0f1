// What is asked of this extension must be nothing but its contract.
#include <cstdlib>

#include "vond/contract.h"
#include "witness.h"

extern "C" {
VOND_HOST_API extern const int vond_contract;
const int vond_contract = VOND_CONTRACT_VERSION + 1;

VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(witness::Data& /*record*/) {
  std::abort();
}
}
