#pragma once

#include <signal.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

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

/// Calls a function on a thread of its own, after a pause each time, until the function returns false or this
/// object's life ends.
class PollingThread {
  public:
    PollingThread(std::chrono::milliseconds pause, std::function<bool()> poll);
    PollingThread(const PollingThread&) = delete;
    PollingThread& operator=(const PollingThread&) = delete;
    /// Waits for a running call.
    ~PollingThread();

  private:
    void run();

    const std::chrono::milliseconds pause_;
    const std::function<bool()> poll_;
    std::mutex mutex_;
    std::condition_variable end_;
    bool isEnding_ = false;
    std::thread thread_;
};

}  // namespace mergeloom::libreoffice
