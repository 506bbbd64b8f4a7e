#include "base/StopSignal.h"

#include <array>
#include <csignal>

namespace mergeloom {

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t receivedSignal = 0;

/// Handles the signal, unless it was ignored from the start, as nohup does with SIGHUP.
void handle(int number, void (*handler)(int)) {
    struct sigaction action {};
    if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
    action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigaction(number, &action, nullptr);
}

}  // namespace

StopSignal::StopSignal() {
    receivedSignal = 0;
    for (const int number : kSignals)
        handle(number, [](int signal) { receivedSignal = signal; });
}

StopSignal::~StopSignal() {
    for (const int number : kSignals)
        handle(number, SIG_DFL);
}

int StopSignal::received() {
    return receivedSignal;
}

}  // namespace mergeloom
