#pragma once

#include "office/model/DocumentHost.h"

namespace mergeloom {

/// Where the office inside the window is found, which may be started more than once in a run.
class HostAccess {
  public:
    HostAccess() = default;
    HostAccess(const HostAccess&) = delete;
    HostAccess& operator=(const HostAccess&) = delete;
    virtual ~HostAccess() = default;

    /// Raises kNotAvailable while no office runs.
    virtual DocumentHost& host() = 0;
};

}  // namespace mergeloom
