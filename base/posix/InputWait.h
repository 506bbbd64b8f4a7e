#pragma once

namespace mergeloom {

/// Waits until a file descriptor can be read or is closed at its other end. Returns false once a signal was
/// received that StopSignal records.
[[nodiscard]] bool waitForInput(int descriptor);

}  // namespace mergeloom
