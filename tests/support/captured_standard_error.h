#pragma once

#include <cstdio>
#include <string>

namespace vond::test {

/// While it lives, everything that the process writes to standard error, by whatever way, goes to a
/// file, whose text it returns.
class CapturedStandardError {
 public:
  CapturedStandardError();
  CapturedStandardError(const CapturedStandardError&) = delete;
  CapturedStandardError& operator=(const CapturedStandardError&) = delete;
  ~CapturedStandardError();

  /// Returns what has been written so far.
  std::string text() const;

 private:
  std::FILE* file_;
  int original_;
};

}  // namespace vond::test
