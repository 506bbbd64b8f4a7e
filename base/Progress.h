#pragma once

#include <cstdint>

namespace mergeloom {

/// Where long work tells how far it is.
class Progress {
  public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    virtual ~Progress() = default;

    /// Told after each step, so it has to cost little.
    virtual void advance(std::int64_t done, std::int64_t total) = 0;
};

}  // namespace mergeloom
