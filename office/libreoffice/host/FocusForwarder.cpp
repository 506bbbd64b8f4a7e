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

constexpr xcb_keysym_t kF1 = 0xffbe;
constexpr xcb_keysym_t kF6 = 0xffc3;

/// Caps Lock and Num Lock, which do not change the meaning of a function key.
constexpr std::uint16_t kLocks[] = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

}  // namespace

FocusForwarder::FocusForwarder(xcb_window_t host, HostListener& listener)
    : host_(host), top_(windows_.topWindow(host)), dialogs_(windows_, host_, top_), listener_(listener) {
    if (::pipe2(wakeUp_, O_CLOEXEC) != 0)
        throw AutomationError(kNotAvailable, "LibreOffice could not be started: no channel is left.");
    grabClicks(host_);
    if (top_ != host_) grabClicks(top_);
    grabKeys();
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

/// The server reports a grabbed key that is pressed while the focus is in a window of the office's.
void FocusForwarder::grabKeys() {
    const auto grab = [this](xcb_keycode_t code, std::uint16_t modifiers) {
        for (const std::uint16_t locks : kLocks) {
            xcb_grab_key(windows_.get(), 0, host_, static_cast<std::uint16_t>(modifiers | locks), code,
                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        }
    };
    for (const xcb_keysym_t key : {kF1, kF6}) {
        const xcb_keycode_t code = windows_.keyCodeOf(key);
        if (code == 0) continue;
        keys_.emplace(code, key);
        grab(code, 0);
        if (key == kF6) grab(code, XCB_MOD_MASK_SHIFT);
    }
}

void FocusForwarder::keep() {
    pollfd sources[] = {{xcb_get_file_descriptor(windows_.get()), POLLIN, 0}, {wakeUp_[0], POLLIN, 0}};
    while (xcb_connection_has_error(windows_.get()) == 0) {
        using EventPtr = std::unique_ptr<xcb_generic_event_t, void (*)(void*)>;
        while (const EventPtr event{xcb_poll_for_event(windows_.get()), std::free}) {
            handle(*event);
        }
        ::poll(sources, 2, -1);
        if (sources[1].revents != 0) return;
    }
}

void FocusForwarder::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t kKind = 0x7f;
    const int kind = event.response_type & kKind;
    if (kind == XCB_BUTTON_PRESS) follow(reinterpret_cast<const xcb_button_press_event_t&>(event));
    dialogs_.handle(event);
    if (kind == XCB_KEY_PRESS) report(reinterpret_cast<const xcb_key_press_event_t&>(event));
}

/// While it is disabled, the window has a question or works on the document.
void FocusForwarder::report(const xcb_key_press_event_t& key) {
    const auto found = keys_.find(key.detail);
    if (found == keys_.end() || !isEnabled_) return;
    if (found->second == kF1) return listener_.keyPressed(HostKey::Help);
    const bool isBack = (key.state & XCB_MOD_MASK_SHIFT) != 0;
    listener_.keyPressed(isBack ? HostKey::PreviousPart : HostKey::NextPart);
}

/// The click counts more than what gave the keyboard to another window in the meantime, which the server
/// would prefer to the time of the click.
void FocusForwarder::follow(const xcb_button_press_event_t& click) {
    if (click.event == host_) {
        const xcb_window_t inner = windows_.innerWindow(host_);
        if (isEnabled_ && inner != XCB_WINDOW_NONE) windows_.giveKeyboardTo(inner, XCB_CURRENT_TIME);
    } else if (!windows_.isMouseOver(host_)) {
        windows_.giveKeyboardTo(top_, click.time);
    }
    xcb_allow_events(windows_.get(), XCB_ALLOW_REPLAY_POINTER, click.time);
    xcb_flush(windows_.get());
}

}  // namespace mergeloom::libreoffice
