#include "standalone/cli/output/ending_signals.h"

namespace vond::standalone {

EndingSignalsHeld::EndingSignalsHeld() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : ENDING_SIGNALS) {
    sigaddset(&signals, signal);
  }
  sigprocmask(SIG_BLOCK, &signals, &mask_before_);
}

EndingSignalsHeld::~EndingSignalsHeld() { sigprocmask(SIG_SETMASK, &mask_before_, nullptr); }

}  // namespace vond::standalone
