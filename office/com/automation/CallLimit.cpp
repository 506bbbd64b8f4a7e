#include "office/com/automation/CallLimit.h"

#include "office/com/automation/CallCancellation.h"

#include <windows.h>

#include <utility>

namespace mergeloom::com {

namespace {

/// The number of checks by the watching thread during the longest call. Waking it for each call would cost
/// more.
constexpr int kLooks = 20;

}  // namespace

CallLimit::CallLimit(Duration longest, Steps steps)
    : longest_(longest), steps_(std::move(steps)), caller_(::GetCurrentThreadId()) {
    watcher_ = std::thread([this] { watch(); });
}

CallLimit::~CallLimit() {
    {
        const std::lock_guard guard(mutex_);
        isEnding_ = true;
    }
    ended_.notify_all();
    watcher_.join();
}

void CallLimit::watch() {
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, longest_ / kLooks, [this] { return isEnding_; }))
        check();
}

void CallLimit::check() {
    const Clock::rep since = since_;
    if (since == 0) return;
    const Clock::duration waited = Clock::now().time_since_epoch() - Clock::duration(since);
    if (waited < longest_) return;
    if (!isExceeded_.exchange(true)) steps_.endOffice();
    // A call fails if the office has ended. Any other call has to be cancelled by its own thread.
    cancelCalls(caller_);
    if (waited >= 2 * longest_) steps_.endRun();
}

CallLimit::Call::Call(CallLimit* limit) : limit_(limit) {
    if (limit_ != nullptr) limit_->since_ = Clock::now().time_since_epoch().count();
}

CallLimit::Call::~Call() {
    if (limit_ != nullptr) limit_->since_ = 0;
}

}  // namespace mergeloom::com
