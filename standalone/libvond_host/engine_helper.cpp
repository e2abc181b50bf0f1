#include "vond/util/engine_helper.h"

#include "standalone/libvond_host/blocks/header.h"
#include "standalone/libvond_host/current_facts.h"

namespace vond::util {

std::string EngineHelper::format_header() {
  return standalone::format_header(standalone::report_facts());
}

}  // namespace vond::util
