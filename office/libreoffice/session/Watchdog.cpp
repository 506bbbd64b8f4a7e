#include "office/libreoffice/session/Watchdog.h"

#include <algorithm>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr Watchdog::Milliseconds kMaxPause{1000};

}  // namespace

// Waking the thread at every call would cost each of them more than a check now and then.
Watchdog::Watchdog(Milliseconds bound, std::function<void()> onTimeout)
    : bound_(bound),
      onTimeout_(std::move(onTimeout)),
      thread_(std::clamp(bound / 8, Milliseconds(1), kMaxPause), [this] { return isInTime(); }) {}

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

bool Watchdog::isInTime() {
    const std::lock_guard lock(mutex_);
    if (depth_ == 0 || Clock::now() - start_ < bound_) return true;
    hasTimedOut_ = true;
    onTimeout_();
    return false;
}

}  // namespace mergeloom::libreoffice
