#include "office/libreoffice/session/LifelinePipe.h"

#include "base/AutomationError.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace mergeloom::libreoffice {

LifelinePipe::LifelinePipe() {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends_) == 0) return;
    throw AutomationError(
        kNotAvailable, "LibreOffice could not be started: " + std::generic_category().message(errno) + ".");
}

LifelinePipe::~LifelinePipe() {
    handOver();
    ::close(ends_[0]);
}

void LifelinePipe::handOver() {
    if (ends_[1] >= 0) ::close(ends_[1]);
    ends_[1] = -1;
}

void LifelinePipe::send(std::string_view line) const {
    // A plain write to a process that is gone would end this one.
    [[maybe_unused]] const ssize_t sent = ::send(ends_[0], line.data(), line.size(), MSG_NOSIGNAL);
}

void LifelinePipe::waitForLine(std::chrono::milliseconds bound) const {
    const auto last = std::chrono::steady_clock::now() + bound;
    for (char letter = 0; letter != '\n';) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(last - std::chrono::steady_clock::now());
        pollfd source{ends_[0], POLLIN, 0};
        const int ready = left.count() > 0 ? ::poll(&source, 1, static_cast<int>(left.count())) : 0;
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0 || ::recv(ends_[0], &letter, 1, 0) <= 0) return;
    }
}

}  // namespace mergeloom::libreoffice
