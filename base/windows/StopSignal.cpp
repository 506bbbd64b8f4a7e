#include "base/StopSignal.h"

#include <windows.h>

#include <atomic>
#include <csignal>

namespace mergeloom {

namespace {

std::atomic<int> receivedSignal = 0;

/// Is called in another thread. The second request, and the end of the session, end the process as usual.
BOOL WINAPI handle(DWORD request) {
    const bool isOfUser = request == CTRL_C_EVENT || request == CTRL_BREAK_EVENT;
    const int number = isOfUser ? SIGINT : SIGTERM;
    int none = 0;
    if (!receivedSignal.compare_exchange_strong(none, number)) return FALSE;
    // A closed window ends the process when this function returns, or after a few seconds.
    if (!isOfUser) ::Sleep(INFINITE);
    return TRUE;
}

}  // namespace

StopSignal::StopSignal() {
    receivedSignal = 0;
    ::SetConsoleCtrlHandler(handle, TRUE);
}

StopSignal::~StopSignal() {
    ::SetConsoleCtrlHandler(handle, FALSE);
}

int StopSignal::received() {
    return receivedSignal;
}

}  // namespace mergeloom
