#include "office/libreoffice/session/IdleInterruption.h"

#include <utility>

namespace mergeloom::libreoffice {

IdleInterruption::IdleInterruption(Milliseconds pause, std::function<void()> interrupt)
    : pause_(pause), interrupt_(std::move(interrupt)) {
    const BlockedSignals blocked;
    thread_ = std::thread([this] { run(); });
}

IdleInterruption::~IdleInterruption() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

/// Wakes the thread only where it sleeps: during a series of short calls it checks after each pause.
void IdleInterruption::begin() {
    const std::lock_guard lock(mutex_);
    if (depth_++ != 0) return;
    ++calls_;
    if (isSleeping_) changed_.notify_one();
}

void IdleInterruption::end() {
    const std::lock_guard lock(mutex_);
    --depth_;
}

void IdleInterruption::run() {
    std::unique_lock lock(mutex_);
    while (!isEnding_) {
        isSleeping_ = true;
        changed_.wait(lock, [this] { return isEnding_ || depth_ > 0; });
        isSleeping_ = false;
        const std::int64_t call = calls_;
        changed_.wait_for(lock, pause_, [this] { return isEnding_; });
        if (isEnding_ || depth_ == 0 || calls_ != call) continue;
        lock.unlock();
        interrupt_();
        lock.lock();
    }
}

}  // namespace mergeloom::libreoffice
