#pragma once

#include "office/libreoffice/session/PollingThread.h"

#include <chrono>
#include <functional>
#include <mutex>

namespace mergeloom::libreoffice {

/// The times that an office may take.
struct TimeBounds {
    std::chrono::milliseconds start{60'000};  ///< until it listens
    std::chrono::milliseconds call{120'000};  ///< for one call
};

/// Measures how long calls into another process last, on a thread of its own, and calls a function once when
/// one lasts too long. Calls within a call count as part of it.
class Watchdog {
  public:
    using Milliseconds = std::chrono::milliseconds;

    /// Calls onTimeout on the watchdog's thread, at most an eighth of the bound too late.
    Watchdog(Milliseconds bound, std::function<void()> onTimeout);

    [[nodiscard]] Milliseconds bound() const { return bound_; }
    [[nodiscard]] bool hasTimedOut();

    /// Begins a call that is measured, and ends it with its scope.
    class Watch {
      public:
        explicit Watch(Watchdog& watchdog) : watchdog_(watchdog) { watchdog_.begin(); }
        Watch(const Watch&) = delete;
        Watch& operator=(const Watch&) = delete;
        ~Watch() { watchdog_.end(); }

      private:
        Watchdog& watchdog_;
    };

  private:
    using Clock = std::chrono::steady_clock;

    void begin();
    void end();
    /// Returns false after it has called onTimeout.
    bool isInTime();

    const Milliseconds bound_;
    const std::function<void()> onTimeout_;
    std::mutex mutex_;
    int depth_ = 0;
    Clock::time_point start_;
    bool hasTimedOut_ = false;
    PollingThread thread_;
};

}  // namespace mergeloom::libreoffice
