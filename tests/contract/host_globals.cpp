// What a host defines beside its operations; these tests need nothing else of one.
#include "vond/log/error_log.h"
#include "vond/log/output_log.h"

namespace vond::log {

std::unique_ptr<OutputLog::OutputLogStream> OutputLog::singleton_obj;
int LOG_LEVEL = 4;
int LOG_OUTPUT = 0;

}  // namespace vond::log
