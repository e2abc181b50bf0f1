#include "standalone/cli/progress_line.h"

#include <algorithm>
#include <iostream>
#include <string>

namespace vond::standalone {
namespace {

constexpr std::chrono::milliseconds FIRST_AFTER{1000};
constexpr std::chrono::milliseconds NEXT_AFTER{200};

std::string share_read(std::uintmax_t bytes_read, std::uintmax_t total) {
  constexpr std::uintmax_t MEBIBYTE = 1024UL * 1024;
  if (total == 0) {
    return std::to_string(bytes_read / MEBIBYTE) + " MiB";
  }
  // A file may grow while it is read.
  return std::to_string(std::min<std::uintmax_t>(100 * bytes_read / total, 100)) + "%";
}

}  // namespace

ProgressLine::ProgressLine(std::uintmax_t total, bool is_shown)
    : total_(total), is_shown_(is_shown), due_(Clock::now() + FIRST_AFTER) {}

ProgressLine::~ProgressLine() {
  if (is_written_) {
    std::cerr << "\r\033[K" << std::flush;
  }
}

void ProgressLine::write_when_due(std::size_t bytes_read, std::size_t findings) {
  const Clock::time_point now = Clock::now();
  if (now < due_) {
    return;
  }
  due_ = now + NEXT_AFTER;
  is_written_ = true;
  std::cerr << "\rvond-report: " + share_read(bytes_read, total_) + " read, " +
                   std::to_string(findings) + " findings\033[K"
            << std::flush;
}

}  // namespace vond::standalone
