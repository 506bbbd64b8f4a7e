#include "office/libreoffice/session/Watchdog.h"

#include "office/libreoffice/session/BlockedSignals.h"

#include <algorithm>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr Watchdog::Milliseconds kMaxPause{1000};

}  // namespace

Watchdog::Watchdog(Milliseconds bound, std::function<void()> onTimeout)
    : bound_(bound), onTimeout_(std::move(onTimeout)) {
    const BlockedSignals blocked;
    thread_ = std::thread([this] { keepWatch(); });
}

Watchdog::~Watchdog() {
    {
        const std::lock_guard lock(mutex_);
        isDismissed_ = true;
    }
    dismissal_.notify_one();
    thread_.join();
}

bool Watchdog::hasTimedOut() {
    const std::lock_guard lock(mutex_);
    return hasTimedOut_;
}

void Watchdog::begin() {
    const std::lock_guard lock(mutex_);
    if (depth_++ == 0) start_ = Clock::now();
}

void Watchdog::end() {
    const std::lock_guard lock(mutex_);
    --depth_;
}

/// Polls: waking this thread at every call would cost each of them more than a look.
void Watchdog::keepWatch() {
    const Milliseconds pause = std::clamp(bound_ / 8, Milliseconds(1), kMaxPause);
    std::unique_lock lock(mutex_);
    while (!dismissal_.wait_for(lock, pause, [this] { return isDismissed_ || isOverdue(); })) {
    }
    if (isDismissed_) return;
    hasTimedOut_ = true;
    onTimeout_();
}

}  // namespace mergeloom::libreoffice
