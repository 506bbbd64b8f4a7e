#pragma once

#include "office/libreoffice/session/LibreOfficeProcess.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace mergeloom::libreoffice {

/// Calls a function once when an office ends while it is watched, even when it is not called.
class ProcessMonitor {
  public:
    /// Calls whenEnded on the monitor's own thread.
    ProcessMonitor(const LibreOfficeProcess& process, std::function<void()> whenEnded);
    ProcessMonitor(const ProcessMonitor&) = delete;
    ProcessMonitor& operator=(const ProcessMonitor&) = delete;
    ~ProcessMonitor();

  private:
    void watch();

    const LibreOfficeProcess& process_;
    const std::function<void()> whenEnded_;
    std::mutex mutex_;
    std::condition_variable dismissal_;
    bool isDismissed_ = false;
    std::thread thread_;
};

}  // namespace mergeloom::libreoffice
