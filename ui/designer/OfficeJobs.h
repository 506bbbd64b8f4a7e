#pragma once

#include <functional>

namespace mergeloom {

/// The thread of the office, on which all calls of the host and of its documents run, seen by whoever has
/// work for it.
class OfficeJobs {
  public:
    using Job = std::function<void()>;

    OfficeJobs() = default;
    OfficeJobs(const OfficeJobs&) = delete;
    OfficeJobs& operator=(const OfficeJobs&) = delete;
    virtual ~OfficeJobs() = default;

    /// Runs the job behind all that were given before and waits for its end. What it raises is raised here.
    virtual void run(const Job& job) = 0;
};

}  // namespace mergeloom
