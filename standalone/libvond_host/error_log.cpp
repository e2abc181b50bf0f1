#include "vond/log/error_log.h"

namespace vond::log {

int LOG_LEVEL = 4;
int LOG_OUTPUT = 0;

}  // namespace vond::log
