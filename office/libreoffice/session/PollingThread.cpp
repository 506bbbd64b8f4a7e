#include "office/libreoffice/session/PollingThread.h"

#include <utility>

namespace mergeloom::libreoffice {

PollingThread::PollingThread(std::chrono::milliseconds pause, std::function<bool()> poll)
    : pause_(pause), poll_(std::move(poll)) {
    const BlockedSignals blocked;
    thread_ = std::thread([this] { run(); });
}

PollingThread::~PollingThread() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    end_.notify_one();
    thread_.join();
}

void PollingThread::run() {
    std::unique_lock lock(mutex_);
    while (!end_.wait_for(lock, pause_, [this] { return isEnding_; })) {
        lock.unlock();
        if (!poll_()) return;
        lock.lock();
    }
}

}  // namespace mergeloom::libreoffice
