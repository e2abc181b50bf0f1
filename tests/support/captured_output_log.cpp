#include "tests/support/captured_output_log.h"

#include <utility>

namespace vond::test {

using log::OutputLog;

CapturedOutputLog::CapturedOutputLog(bool colored)
    : replaced_(
          std::exchange(OutputLog::singleton_obj, std::make_unique<OutputLog::OutputLogStream>())) {
  OutputLog::singleton_obj->streams.push_back({&destination_, colored});
}

CapturedOutputLog::~CapturedOutputLog() { OutputLog::singleton_obj = std::move(replaced_); }

std::string CapturedOutputLog::take() {
  std::string text = destination_.str();
  destination_.str({});
  return text;
}

}  // namespace vond::test
