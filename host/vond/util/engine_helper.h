#pragma once

#include <string>

#include "vond/host_api.h"

namespace vond::util {

/// What the engine says about itself.
class EngineHelper {
 public:
  /// Returns the report's header text, line ends included.
  VOND_HOST_API static std::string format_header();
};

}  // namespace vond::util
