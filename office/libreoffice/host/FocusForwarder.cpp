#include "office/libreoffice/host/FocusForwarder.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/PollingThread.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>

namespace mergeloom::libreoffice {

namespace {

/// The left, the middle and the right button; the wheel does not move the focus.
constexpr std::uint8_t kButtons[] = {1, 2, 3};

}  // namespace

FocusForwarder::FocusForwarder(xcb_window_t host) : host_(host), top_(windows_.topWindow(host)) {
    if (::pipe2(wakeUp_, O_CLOEXEC) != 0)
        throw AutomationError(kNotAvailable, "LibreOffice could not be started: no channel is left.");
    grabClicks(host_);
    if (top_ != host_) grabClicks(top_);
    xcb_flush(windows_.get());
    const BlockedSignals blocked;
    thread_ = std::thread([this] { keep(); });
}

FocusForwarder::~FocusForwarder() {
    ::close(wakeUp_[1]);
    thread_.join();
    ::close(wakeUp_[0]);
}

/// Makes the X server queue each click, and the keys after it, until follow() releases them. Keys that are
/// typed right after a click are thus sent to the clicked window, even if this process is slow.
void FocusForwarder::grabClicks(xcb_window_t window) const {
    for (const std::uint8_t button : kButtons) {
        xcb_grab_button(windows_.get(), 1, window, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_SYNC,
                        XCB_GRAB_MODE_SYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE, button, XCB_MOD_MASK_ANY);
    }
}

void FocusForwarder::keep() {
    pollfd sources[] = {{xcb_get_file_descriptor(windows_.get()), POLLIN, 0}, {wakeUp_[0], POLLIN, 0}};
    while (xcb_connection_has_error(windows_.get()) == 0) {
        using EventPtr = std::unique_ptr<xcb_generic_event_t, void (*)(void*)>;
        while (const EventPtr event{xcb_poll_for_event(windows_.get()), std::free}) {
            constexpr std::uint8_t kKind = 0x7f;
            if ((event->response_type & kKind) == XCB_BUTTON_PRESS)
                follow(*reinterpret_cast<const xcb_button_press_event_t*>(event.get()));
        }
        ::poll(sources, 2, -1);
        if (sources[1].revents != 0) return;
    }
}

void FocusForwarder::follow(const xcb_button_press_event_t& click) {
    if (click.event == host_) {
        const xcb_window_t inner = windows_.innerWindow(host_);
        if (isEnabled_ && inner != XCB_WINDOW_NONE) windows_.giveKeyboardTo(inner, click.time);
    } else if (!windows_.isMouseOver(host_)) {
        windows_.giveKeyboardTo(top_, click.time);
    }
    xcb_allow_events(windows_.get(), XCB_ALLOW_REPLAY_POINTER, click.time);
    xcb_flush(windows_.get());
}

}  // namespace mergeloom::libreoffice
