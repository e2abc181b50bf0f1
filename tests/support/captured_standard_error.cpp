#include "tests/support/captured_standard_error.h"

#include <unistd.h>

#include <iostream>
#include <stdexcept>

namespace vond::test {
namespace {

void flush_standard_error() {
  std::cerr.flush();
  std::fflush(stderr);
}

}  // namespace

CapturedStandardError::CapturedStandardError()
    : file_(std::tmpfile()), original_(dup(STDERR_FILENO)) {
  if (file_ == nullptr || original_ < 0) {
    throw std::runtime_error("cannot capture standard error");
  }
  flush_standard_error();
  dup2(fileno(file_), STDERR_FILENO);
}

CapturedStandardError::~CapturedStandardError() {
  flush_standard_error();
  dup2(original_, STDERR_FILENO);
  close(original_);
  std::fclose(file_);
}

std::string CapturedStandardError::text() const {
  flush_standard_error();
  std::string text;
  char buffer[512];
  for (;;) {
    const ssize_t count =
        pread(fileno(file_), buffer, sizeof buffer, static_cast<off_t>(text.size()));
    if (count <= 0) {
      return text;
    }
    text.append(buffer, static_cast<std::size_t>(count));
  }
}

}  // namespace vond::test
