#include "office/libreoffice/calls/CallPipe.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <system_error>

namespace mergeloom::libreoffice {

namespace {

constexpr std::size_t kHeader = sizeof(FrameKind) + sizeof(std::uint64_t);
constexpr std::size_t kBlock = 4096;

[[noreturn]] void raiseError() {
    throw std::system_error(errno, std::generic_category());
}

int checked(int result) {
    if (result < 0) raiseError();
    return result;
}

/// Returns the address of the socket in a folder. An address has room for about a hundred characters, which a
/// path may exceed, so it names the folder by its descriptor. The descriptor must outlive the address.
sockaddr_un addressIn(const Descriptor& folder) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/proc/self/fd/" + std::to_string(folder.number()) + "/calls";
    std::ranges::copy(path, address.sun_path);
    return address;
}

Descriptor openFolder(const std::string& folder) {
    return Descriptor(checked(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)));
}

Descriptor makeSocket() {
    return Descriptor(checked(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)));
}

}  // namespace

Descriptor::~Descriptor() {
    if (number_ >= 0) ::close(number_);
}

void CallPipe::send(FrameKind kind, const std::string& bytes) {
    const std::uint64_t size = bytes.size();
    std::string frame(kHeader, static_cast<char>(kind));
    std::memcpy(frame.data() + sizeof kind, &size, sizeof size);
    frame += bytes;
    for (std::string_view rest = frame; !rest.empty();) {
        const ssize_t sent = ::send(descriptor_.number(), rest.data(), rest.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno != EINTR) raiseError();
        rest.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(sent, 0)));
    }
}

void CallPipe::setPatience(std::chrono::milliseconds time) {
    const timeval bound{time.count() / 1000, time.count() % 1000 * 1000};
    checked(::setsockopt(descriptor_.number(), SOL_SOCKET, SO_RCVTIMEO, &bound, sizeof bound));
}

bool CallPipe::read() {
    const std::size_t size = received_.size();
    received_.resize(size + std::max(missing(), kBlock));
    const ssize_t count = ::recv(descriptor_.number(), received_.data() + size, received_.size() - size, 0);
    const int error = count == 0 ? EPIPE : errno;
    received_.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count > 0 || error == EINTR) return true;
    if (error == EAGAIN) return false;
    throw std::system_error(error, std::generic_category());
}

/// Returns the number of bytes that are missing in the first frame, as far as it is known.
std::size_t CallPipe::missing() const {
    if (received_.size() < kHeader) return kHeader - received_.size();
    std::uint64_t size = 0;
    std::memcpy(&size, received_.data() + sizeof(FrameKind), sizeof size);
    return kHeader + size - std::min(kHeader + size, received_.size());
}

std::optional<CallFrame> CallPipe::tryToReceive() {
    while (missing() > 0) {
        if (!read() && received_.empty()) return std::nullopt;
    }
    std::uint64_t size = 0;
    std::memcpy(&size, received_.data() + sizeof(FrameKind), sizeof size);
    CallFrame frame{static_cast<FrameKind>(received_[0]), received_.substr(kHeader, size)};
    received_.erase(0, kHeader + size);
    return frame;
}

CallFrame CallPipe::receive() {
    while (true) {
        if (std::optional<CallFrame> frame = tryToReceive()) return *std::move(frame);
    }
}

CallListener::CallListener(const std::string& folder) : descriptor_(makeSocket()) {
    const Descriptor place = openFolder(folder);
    const sockaddr_un address = addressIn(place);
    checked(::bind(descriptor_.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address));
    checked(::listen(descriptor_.number(), 1));
}

CallPipe CallListener::accept() {
    return CallPipe(Descriptor(checked(::accept4(descriptor_.number(), nullptr, nullptr, SOCK_CLOEXEC))));
}

CallPipe connectToListener(const std::string& folder) {
    const Descriptor place = openFolder(folder);
    const sockaddr_un address = addressIn(place);
    Descriptor descriptor = makeSocket();
    checked(::connect(descriptor.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address));
    return CallPipe(std::move(descriptor));
}

}  // namespace mergeloom::libreoffice
