#pragma once

namespace mergeloom {

/// The exit status that a shell reports for a process that a signal ended, without the signal's number.
inline constexpr int kEndedBySignal = 128;

/// During its life the first signal that asks the process to end (SIGINT, SIGTERM, SIGHUP) is only recorded,
/// so that work in steps can end after the current one. A second one ends the process as usual. Only one may
/// exist at a time.
class StopSignal {
  public:
    StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;
    ~StopSignal();

    /// Returns the signal that was received; 0 for none.
    [[nodiscard]] static int received();
};

}  // namespace mergeloom
