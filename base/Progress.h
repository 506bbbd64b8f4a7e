#pragma once

#include <cstdint>

namespace mergeloom {

/// Receives the progress of long work.
class Progress {
  public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    virtual ~Progress() = default;

    /// Called after each step, so it has to be cheap.
    virtual void advance(std::int64_t done, std::int64_t total) = 0;
};

}  // namespace mergeloom
