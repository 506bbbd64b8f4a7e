#include "ui/designer/InputOnlyWindow.h"

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <utility>

namespace mergeloom {

namespace {

/// Returns true if a grab of the keyboard begins or ends, which leaves the focus where it is.
bool isOfGrab(const xcb_focus_in_event_t& event) {
    return event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB;
}

/// Returns true if the focus moves to a window inside the event's window.
bool isForInnerWindow(const xcb_focus_in_event_t& event) {
    return event.detail == XCB_NOTIFY_DETAIL_VIRTUAL || event.detail == XCB_NOTIFY_DETAIL_NONLINEAR_VIRTUAL;
}

}  // namespace

InputOnlyWindow::InputOnlyWindow(std::uint32_t window, std::uint32_t pane, Events events)
    : window_(window), pane_(pane), events_(std::move(events)) {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr) return;
    connection_ = x11->connection();
    makeWindow();
    qApp->installNativeEventFilter(this);
    takeFocus();
}

InputOnlyWindow::~InputOnlyWindow() {
    if (connection_ == nullptr) return;
    qApp->removeNativeEventFilter(this);
    xcb_destroy_window(connection_, id_);
    xcb_flush(connection_);
}

void InputOnlyWindow::makeWindow() {
    constexpr std::int16_t kOutOfSight = -1;
    constexpr std::uint32_t kEvents =
        XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE | XCB_EVENT_MASK_FOCUS_CHANGE;
    id_ = xcb_generate_id(connection_);
    xcb_create_window(connection_, 0, id_, window_, kOutOfSight, kOutOfSight, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &kEvents);
    xcb_map_window(connection_, id_);
    xcb_flush(connection_);
}

/// Moves the focus from the held window to this one, unless another window has it by now. Grabs the server,
/// so that no click gives the focus to the document between the question and the move.
void InputOnlyWindow::takeFocus() const {
    xcb_grab_server(connection_);
    const std::unique_ptr<xcb_get_input_focus_reply_t, void (*)(void*)> current(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr), std::free);
    if (current && current->focus == window_)
        xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, id_, XCB_CURRENT_TIME);
    xcb_ungrab_server(connection_);
    xcb_flush(connection_);
}

void InputOnlyWindow::takeKeyboard() const {
    if (connection_ == nullptr) return;
    xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, id_, XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

bool InputOnlyWindow::handleFocusIn(xcb_focus_in_event_t& event) {
    if (isOfGrab(event)) return true;
    if (event.event == pane_ && isForInnerWindow(event)) events_.documentEntered();
    if (event.event == id_) {
        reportFocus(event);
        event.event = window_;
        return false;
    }
    if (event.event != window_ || event.detail == XCB_NOTIFY_DETAIL_POINTER) return false;
    isFromOutside_ = event.detail != XCB_NOTIFY_DETAIL_INFERIOR;
    takeFocus();
    return true;
}

/// A window manager also gives the focus to the window when the user clicks in it while the document has it.
void InputOnlyWindow::reportFocus(const xcb_focus_in_event_t& event) {
    const bool isActivated = event.detail == XCB_NOTIFY_DETAIL_ANCESTOR && isFromOutside_;
    isActivated ? events_.activated() : events_.documentLeft();
}

/// Between the held window and this one the focus moves for a moment only.
bool InputOnlyWindow::handleFocusOut(xcb_focus_out_event_t& event) const {
    if (isOfGrab(event)) return true;
    if (event.event == window_) return event.detail == XCB_NOTIFY_DETAIL_INFERIOR;
    if (event.event != id_) return false;
    event.event = window_;
    return event.detail == XCB_NOTIFY_DETAIL_ANCESTOR;
}

bool InputOnlyWindow::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) {
    constexpr std::uint8_t kKind = 0x7f;
    auto* const event = static_cast<xcb_generic_event_t*>(message);
    switch (event->response_type & kKind) {
        case XCB_KEY_PRESS:
        case XCB_KEY_RELEASE: {
            auto* const key = static_cast<xcb_key_press_event_t*>(message);
            if (key->event == id_) key->event = window_;
            return false;
        }
        case XCB_FOCUS_IN:
            return handleFocusIn(*static_cast<xcb_focus_in_event_t*>(message));
        case XCB_FOCUS_OUT:
            return handleFocusOut(*static_cast<xcb_focus_out_event_t*>(message));
        default:
            return false;
    }
}

}  // namespace mergeloom
