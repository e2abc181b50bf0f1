#pragma once

#include <csignal>

namespace vond::standalone {

/// The signals by which users and systems end a program.
inline constexpr int ENDING_SIGNALS[] = {SIGHUP, SIGINT, SIGTERM, SIGXCPU};

/// While it lives the handlers of ENDING_SIGNALS wait.
class EndingSignalsHeld {
 public:
  EndingSignalsHeld();
  ~EndingSignalsHeld();
  EndingSignalsHeld(const EndingSignalsHeld&) = delete;
  EndingSignalsHeld& operator=(const EndingSignalsHeld&) = delete;

 private:
  sigset_t mask_before_{};
};

}  // namespace vond::standalone
