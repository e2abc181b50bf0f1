#include "vond/log/output_log.h"

namespace vond::log {

std::unique_ptr<OutputLog::OutputLogStream> OutputLog::singleton_obj;

}  // namespace vond::log
