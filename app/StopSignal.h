#pragma once

namespace mergeloom {

/// While it lives, the first signal that asks the process to end (SIGINT, SIGTERM, SIGHUP) is only noted, so
/// that work in steps can end after the current one. A second one ends the process as usual. One at a time.
class StopSignal {
  public:
    StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;
    ~StopSignal();

    /// The signal that came; 0 for none.
    [[nodiscard]] static int received();
};

}  // namespace mergeloom
