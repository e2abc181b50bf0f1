#include "vond/util/engine_helper.h"

#include "standalone/libvond_host/header_block.h"

namespace vond::util {

std::string EngineHelper::format_header() {
  return standalone::header_block(standalone::report_facts());
}

}  // namespace vond::util
