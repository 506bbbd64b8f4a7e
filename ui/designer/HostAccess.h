#pragma once

#include "office/model/DocumentHost.h"

namespace mergeloom {

/// Access to the office inside the window, which may be started more than once in a run.
class HostAccess {
  public:
    HostAccess() = default;
    HostAccess(const HostAccess&) = delete;
    HostAccess& operator=(const HostAccess&) = delete;
    virtual ~HostAccess() = default;

    /// Returns the office. Raises kNotAvailable while none runs.
    virtual DocumentHost& host() = 0;
};

}  // namespace mergeloom
