#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "vond/log/output_log.h"

namespace vond::test {

/// While it lives, the output log has one destination, whose text it returns.
class CapturedOutputLog {
 public:
  explicit CapturedOutputLog(bool colored = false);
  CapturedOutputLog(const CapturedOutputLog&) = delete;
  CapturedOutputLog& operator=(const CapturedOutputLog&) = delete;
  ~CapturedOutputLog();

  /// Returns what has been written so far.
  std::string text() const { return destination_.str(); }

  /// Returns what has been written since the last call.
  std::string take();

 private:
  std::ostringstream destination_;
  std::unique_ptr<log::OutputLog::OutputLogStream> replaced_;
};

}  // namespace vond::test
