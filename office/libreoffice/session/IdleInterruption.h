#pragma once

#include "office/libreoffice/session/PollingThread.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>

namespace mergeloom::libreoffice {

/// Interrupts the idle tasks of an office as long as a call waits for them. The layout of the later pages of
/// a long document is one of them; it takes seconds, but pauses for input.
class IdleInterruption {
  public:
    using Milliseconds = std::chrono::milliseconds;

    /// Calls the function on a thread of its own after each pause in which a call has not returned.
    IdleInterruption(Milliseconds pause, std::function<void()> interrupt);
    IdleInterruption(const IdleInterruption&) = delete;
    IdleInterruption& operator=(const IdleInterruption&) = delete;
    /// Waits for a running call of the function.
    ~IdleInterruption();

    /// Marks the begin and the end of a call. A call within a call counts as part of it.
    void begin();
    void end();

  private:
    void run();

    const Milliseconds pause_;
    const std::function<void()> interrupt_;
    std::mutex mutex_;
    std::condition_variable changed_;
    int depth_ = 0;
    std::int64_t calls_ = 0;
    bool isSleeping_ = false;
    bool isEnding_ = false;
    std::thread thread_;
};

}  // namespace mergeloom::libreoffice
