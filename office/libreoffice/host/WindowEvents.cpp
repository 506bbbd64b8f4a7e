#include "office/libreoffice/host/WindowEvents.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/PollingThread.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <utility>

namespace mergeloom::libreoffice {

WindowEvents::WindowEvents(xcb_connection_t* connection, Handler handler)
    : connection_(connection), handler_(std::move(handler)) {
    if (::pipe2(wakeUp_, O_CLOEXEC) != 0)
        throw AutomationError(kNotAvailable, "LibreOffice could not be started: no channel is left.");
    const BlockedSignals blocked;
    thread_ = std::thread([this] { run(); });
}

WindowEvents::~WindowEvents() {
    ::close(wakeUp_[1]);
    thread_.join();
    ::close(wakeUp_[0]);
}

void WindowEvents::run() {
    pollfd sources[] = {{xcb_get_file_descriptor(connection_), POLLIN, 0}, {wakeUp_[0], POLLIN, 0}};
    while (xcb_connection_has_error(connection_) == 0) {
        using EventPtr = std::unique_ptr<xcb_generic_event_t, void (*)(void*)>;
        while (const EventPtr event{xcb_poll_for_event(connection_), std::free}) {
            handler_(*event);
        }
        ::poll(sources, 2, -1);
        if (sources[1].revents != 0) return;
    }
}

}  // namespace mergeloom::libreoffice
