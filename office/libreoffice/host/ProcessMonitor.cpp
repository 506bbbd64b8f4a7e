#include "office/libreoffice/host/ProcessMonitor.h"

#include "office/libreoffice/session/BlockedSignals.h"

#include <chrono>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr std::chrono::milliseconds kPause{100};

}  // namespace

ProcessMonitor::ProcessMonitor(const LibreOfficeProcess& process, std::function<void()> whenEnded)
    : process_(process), whenEnded_(std::move(whenEnded)) {
    const BlockedSignals blocked;
    thread_ = std::thread([this] { watch(); });
}

ProcessMonitor::~ProcessMonitor() {
    {
        const std::lock_guard lock(mutex_);
        isDismissed_ = true;
    }
    dismissal_.notify_one();
    thread_.join();
}

void ProcessMonitor::watch() {
    std::unique_lock lock(mutex_);
    while (!dismissal_.wait_for(lock, kPause, [this] { return isDismissed_; })) {
        if (process_.isRunning()) continue;
        lock.unlock();
        return whenEnded_();
    }
}

}  // namespace mergeloom::libreoffice
