#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "standalone/report/check_run.h"

namespace vond::standalone {

/// One line on standard error that tells how far reading has come; erased at the end.
class ProgressLine : public ReadingProgress {
 public:
  /// `total` is in bytes, 0 if it is not known. Nothing is written unless `is_shown`.
  ProgressLine(std::uintmax_t total, bool is_shown);
  ~ProgressLine() override;
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// Writes once reading takes longer than a second, and not more often than a person can read.
  void advance(std::size_t bytes_read, std::size_t findings) override {
    if (is_shown_ && ++calls_ % CALLS_PER_LOOK_AT_CLOCK == 0) {
      write_when_due(bytes_read, findings);
    }
  }

 private:
  using Clock = std::chrono::steady_clock;

  static constexpr std::size_t CALLS_PER_LOOK_AT_CLOCK = 16;

  void write_when_due(std::size_t bytes_read, std::size_t findings);

  std::uintmax_t total_;
  bool is_shown_;
  bool is_written_ = false;
  std::size_t calls_ = 0;
  Clock::time_point due_;
};

}  // namespace vond::standalone
