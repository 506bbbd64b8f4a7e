#pragma once

#include <functional>

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

}  // namespace mergeloom
