#include "vond/util/engine_helper.h"

namespace vond::util {

std::string EngineHelper::format_header() {
  return "Cluster health report\n";
}

}  // namespace vond::util
