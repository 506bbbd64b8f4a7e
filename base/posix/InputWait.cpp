#include "base/posix/InputWait.h"

#include "base/StopSignal.h"

#include <poll.h>

#include <cerrno>
#include <csignal>

namespace mergeloom {

bool waitForInput(int descriptor) {
    // A signal between the test and the wait must end the wait, so it is let through during the wait only.
    sigset_t signals{};
    sigset_t before{};
    sigfillset(&signals);
    pthread_sigmask(SIG_BLOCK, &signals, &before);
    pollfd input{descriptor, POLLIN, 0};
    int ready = -1;
    while (ready < 0 && StopSignal::received() == 0) {
        ready = ::ppoll(&input, 1, nullptr, &before);
        // The caller's read reports the error.
        if (ready < 0 && errno != EINTR) ready = 0;
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return StopSignal::received() == 0;
}

}  // namespace mergeloom
