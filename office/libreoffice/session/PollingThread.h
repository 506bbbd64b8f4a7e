#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace mergeloom::libreoffice {

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
