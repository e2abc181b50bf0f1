#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace vond::standalone {

/// One line on standard error that tells how far long work has come; erased at the end.
class Progress {
 public:
  /// `total` is in bytes, 0 if it is not known. Nothing is written unless `shown`.
  Progress(std::uintmax_t total, bool shown);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// To be called for every finding; cheap. Writes once work takes longer than a second, and not
  /// more often than a person can read.
  void update(std::size_t bytes_read, std::size_t findings) {
    if (shown_ && ++calls_ % CALLS_A_LOOK == 0) {
      look(bytes_read, findings);
    }
  }

 private:
  using Clock = std::chrono::steady_clock;

  static constexpr std::size_t CALLS_A_LOOK = 16;

  void look(std::size_t bytes_read, std::size_t findings);

  std::uintmax_t total_;
  bool shown_;
  bool written_ = false;
  std::size_t calls_ = 0;
  Clock::time_point next_;
};

}  // namespace vond::standalone
