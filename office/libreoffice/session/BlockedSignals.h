#pragma once

#include <signal.h>

namespace mergeloom::libreoffice {

/// Keeps all signals from the threads that are started during its life: the program's own threads handle
/// them, and a thread that writes to a process that is gone must not end the program.
class BlockedSignals {
  public:
    BlockedSignals() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;
    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  private:
    sigset_t before_{};
};

}  // namespace mergeloom::libreoffice
