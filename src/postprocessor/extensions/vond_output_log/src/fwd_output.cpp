#include "fwd_output.h"

#include "vond/vocabulary/severity_bands.h"

namespace vond_output_log {

int FwdOutputFunctions::print_full_tree(const Data& /*data*/) {
  return 0;
}

}  // namespace vond_output_log
