#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace mergeloom::com {

/// Limits the duration of calls to an office, which may show a dialog that nobody sees. After the limit the
/// office is ended and the call is cancelled (CallCancellation). If neither has an effect, the run is ended.
class CallLimit {
  public:
    using Duration = std::chrono::milliseconds;

    /// The actions after a call has exceeded the limit. Another thread calls them.
    struct Steps {
        std::function<void()> endOffice;  ///< if it may be ended
        std::function<void()> endRun;     ///< when the call waits for as long again
    };

    CallLimit(Duration longest, Steps steps);
    CallLimit(const CallLimit&) = delete;
    CallLimit& operator=(const CallLimit&) = delete;
    ~CallLimit();

    [[nodiscard]] Duration longest() const { return longest_; }
    /// Returns true after a call has exceeded the limit. No further calls are made to the office.
    [[nodiscard]] bool isExceeded() const { return isExceeded_; }

    /// Measures the duration of one call. The limit may be null.
    class Call {
      public:
        explicit Call(CallLimit* limit);
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;
        ~Call();

      private:
        CallLimit* limit_;
    };

  private:
    using Clock = std::chrono::steady_clock;

    void watch();
    void check();

    const Duration longest_;
    const Steps steps_;
    const unsigned long caller_;         ///< the thread of the calls
    std::atomic<Clock::rep> since_ = 0;  ///< the start of the call that is made, or 0
    std::atomic<bool> isExceeded_ = false;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool isEnding_ = false;  ///< guarded by the mutex
    std::thread watcher_;
};

}  // namespace mergeloom::com
