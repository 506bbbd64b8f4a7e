#pragma once

#include "ui/designer/OfficeJobs.h"

#include <QObject>
#include <QThread>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>

namespace mergeloom {

/// The office's thread. It belongs to the thread of the windows, which alone calls its members, and never
/// blocks that one: whoever waits for a job lets the windows be painted.
class OfficeWorker final : public QObject, public OfficeJobs {
    Q_OBJECT

  public:
    /// Told in the windows' thread with what the job raised, if anything.
    using Completion = std::function<void(std::exception_ptr error)>;

    /// The user is told of a job that is waited for when it takes longer than the patience.
    explicit OfficeWorker(std::chrono::milliseconds patience = std::chrono::milliseconds(200));
    /// Waits for the job that runs. Those that did not begin are forgotten.
    ~OfficeWorker() override;

    /// Waits without input to the windows.
    void run(const Job& job) override;
    /// Does not wait.
    void post(Job job, Completion completion);
    /// Does not wait either. When the thread comes to it, only the newest of such jobs is run; none is when
    /// another job was given later. What it raises is forgotten.
    void postNewest(Job job);

    [[nodiscard]] bool isWaitedFor() const { return waiters_ > 0; }

  Q_SIGNALS:
    /// The patience with a job is over.
    void busy();
    /// The job that busy told of has ended.
    void idle();

  private:
    void work();
    std::optional<Job> nextJob();
    void add(Job job);

    std::chrono::milliseconds patience_;
    int waiters_ = 0;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> jobs_;
    std::optional<Job> newest_;
    bool ends_ = false;
    std::unique_ptr<QThread> thread_;
};

}  // namespace mergeloom
