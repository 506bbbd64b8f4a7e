#include "ui/designer/OfficeWorker.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <utility>

namespace mergeloom {

namespace {

/// Refuses drags until it is destroyed, since they cannot wait as keys and clicks do.
class DragRefusal final : public QObject {
  public:
    DragRefusal() { QApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* receiver, QEvent* event) override;
};

bool isDrag(QEvent::Type type) {
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

bool DragRefusal::eventFilter(QObject* /*receiver*/, QEvent* event) {
    return isDrag(event->type()) && QApplication::activeModalWidget() == nullptr;
}

std::exception_ptr errorOf(const OfficeJobs::Job& job) {
    try {
        job();
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

}  // namespace

OfficeWorker::OfficeWorker(std::chrono::milliseconds patience)
    : patience_(patience), thread_(QThread::create([this] { work(); })) {
    thread_->start();
}

OfficeWorker::~OfficeWorker() {
    pendingCalls_.clear();
    {
        const std::scoped_lock lock(mutex_);
        ends_ = true;
    }
    changed_.notify_one();
    // The running job may be about to ask the user, which needs this thread.
    while (!thread_->wait(10))
        QCoreApplication::processEvents();
}

void OfficeWorker::run(const Job& job) {
    const DragRefusal refusal;
    QObject listener;
    bool done = false;
    std::exception_ptr error;
    add([&] {
        error = errorOf(job);
        QMetaObject::invokeMethod(
            &listener, [&done] { done = true; }, Qt::QueuedConnection);
    });
    bool wasBusy = false;
    QTimer::singleShot(patience_, &listener, [&] {
        wasBusy = true;
        Q_EMIT busy();
    });
    ++waiters_;
    // No event loop of Qt's: one ends with the program, and the job has to be waited for even then. Keys and
    // clicks stay in their queue; a dialog that the job shows takes its own, and Qt discards those for the
    // windows below it.
    while (!done)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::ExcludeUserInputEvents);
    stopWaiting();
    if (wasBusy) Q_EMIT idle();
    if (error) std::rethrow_exception(error);
}

void OfficeWorker::stopWaiting() {
    --waiters_;
    if (pendingCalls_.empty()) return;
    QMetaObject::invokeMethod(
        this, [this] { makePendingCalls(); }, Qt::QueuedConnection);
}

void OfficeWorker::callWhenFree(std::function<void()> call) {
    if (!isWaitedFor() && pendingCalls_.empty()) return call();
    pendingCalls_.push_back(std::move(call));
}

/// A call may wait for a job itself; the end of that job requests the next calls.
void OfficeWorker::makePendingCalls() {
    while (!isWaitedFor() && !pendingCalls_.empty()) {
        const std::function<void()> call = std::move(pendingCalls_.front());
        pendingCalls_.pop_front();
        call();
    }
}

void OfficeWorker::post(Job job, Completion completion) {
    add([this, job = std::move(job), completion = std::move(completion)] {
        const std::exception_ptr error = errorOf(job);
        QMetaObject::invokeMethod(
            this, [completion, error] { completion(error); }, Qt::QueuedConnection);
    });
}

void OfficeWorker::postNewest(Job job) {
    {
        const std::scoped_lock lock(mutex_);
        newest_ = std::move(job);
    }
    changed_.notify_one();
}

void OfficeWorker::add(Job job) {
    {
        const std::scoped_lock lock(mutex_);
        newest_.reset();
        jobs_.push_back(std::move(job));
    }
    changed_.notify_one();
}

void OfficeWorker::work() {
    while (const std::optional<Job> job = nextJob())
        (void)errorOf(*job);
}

/// Returns the next job; none at the end.
std::optional<OfficeJobs::Job> OfficeWorker::nextJob() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ends_ || !jobs_.empty() || newest_; });
    if (ends_) return std::nullopt;
    if (jobs_.empty()) return std::exchange(newest_, std::nullopt);
    Job job = std::move(jobs_.front());
    jobs_.pop_front();
    return job;
}

}  // namespace mergeloom
