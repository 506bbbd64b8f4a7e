#include "office/libreoffice/session/Leash.h"

#include "base/AutomationError.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace mergeloom::libreoffice {

Leash::Leash() {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends_) == 0) return;
    throw AutomationError(
        kNotAvailable, "LibreOffice could not be started: " + std::generic_category().message(errno) + ".");
}

Leash::~Leash() {
    handOver();
    ::close(ends_[0]);
}

void Leash::handOver() {
    if (ends_[1] >= 0) ::close(ends_[1]);
    ends_[1] = -1;
}

void Leash::send(std::string_view line) const {
    // A plain write to a process that is gone would end this one.
    [[maybe_unused]] const ssize_t sent = ::send(ends_[0], line.data(), line.size(), MSG_NOSIGNAL);
}

}  // namespace mergeloom::libreoffice
