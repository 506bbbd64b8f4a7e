#pragma once

#include <functional>

namespace mergeloom {

/// Runs a call on the thread that owns the windows: at once when that is the calling thread, otherwise queued
/// to it, and the caller waits. Exceptions of the call reach the caller. The windows' thread must be running
/// its event loop, and must not be waiting for the caller.
void callOnGuiThread(const std::function<void()>& call);

}  // namespace mergeloom
