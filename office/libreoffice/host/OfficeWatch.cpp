#include "office/libreoffice/host/OfficeWatch.h"

#include "office/libreoffice/session/BlockedSignals.h"

#include <chrono>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr std::chrono::milliseconds kPause{100};

}  // namespace

OfficeWatch::OfficeWatch(const LibreOfficeProcess& process, std::function<void()> whenEnded)
    : process_(process), whenEnded_(std::move(whenEnded)) {
    const BlockedSignals blocked;
    thread_ = std::thread([this] { watch(); });
}

OfficeWatch::~OfficeWatch() {
    {
        const std::lock_guard lock(mutex_);
        isDismissed_ = true;
    }
    dismissal_.notify_one();
    thread_.join();
}

void OfficeWatch::watch() {
    std::unique_lock lock(mutex_);
    while (!dismissal_.wait_for(lock, kPause, [this] { return isDismissed_; })) {
        if (process_.isRunning()) continue;
        lock.unlock();
        return whenEnded_();
    }
}

}  // namespace mergeloom::libreoffice
