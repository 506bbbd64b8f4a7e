#pragma once

#include <QObject>
#include <QThread>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace mergeloom {

/// The thread of the office, on which all calls of the host and of its documents run, for those who have work
/// for it.
class OfficeJobs {
  public:
    using Job = std::function<void()>;

    OfficeJobs() = default;
    OfficeJobs(const OfficeJobs&) = delete;
    OfficeJobs& operator=(const OfficeJobs&) = delete;
    virtual ~OfficeJobs() = default;

    /// Runs the job after all earlier ones and waits for its end. Its errors are raised here.
    virtual void run(const Job& job) = 0;
};

/// The office's thread. Its members are called by the thread of the windows alone and never block it: while a
/// job is waited for, the windows are painted.
class OfficeWorker final : public QObject, public OfficeJobs {
    Q_OBJECT

  public:
    /// Called in the windows' thread with the error of the job, if any.
    using Completion = std::function<void(std::exception_ptr error)>;

    /// A job that is waited for longer than the patience is announced by busy.
    explicit OfficeWorker(std::chrono::milliseconds patience = std::chrono::milliseconds(200));
    /// Waits for the running job. Those that did not begin are forgotten.
    ~OfficeWorker() override;

    /// Runs the job and waits. Keys and clicks are kept until the caller has returned to its event loop.
    void run(const Job& job) override;
    /// Adds a job and does not wait.
    void post(Job job, Completion completion);
    /// Adds a job and does not wait. Only the newest of such jobs is run; none is when another job was added
    /// later. Its errors are ignored.
    void postNewest(Job job);
    /// Calls at once, or, while a job is waited for, after the caller of run has returned to its event loop.
    /// Calls keep their order.
    void callWhenFree(std::function<void()> call);

    [[nodiscard]] bool isWaitedFor() const { return waiters_ > 0; }

  Q_SIGNALS:
    /// Emitted when a job takes longer than the patience.
    void busy();
    /// Emitted when that job has ended.
    void idle();

  private:
    void work();
    std::optional<Job> nextJob();
    void add(Job job);
    void stopWaiting();
    void makePendingCalls();

    std::chrono::milliseconds patience_;
    int waiters_ = 0;
    std::deque<std::function<void()>> pendingCalls_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> jobs_;
    std::optional<Job> newest_;
    bool ends_ = false;
    std::unique_ptr<QThread> thread_;
};

}  // namespace mergeloom
