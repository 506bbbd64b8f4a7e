#include "office/libreoffice/host/DialogOwner.h"

#include <cstdlib>
#include <memory>

namespace mergeloom::libreoffice {

namespace {

void selectEvents(xcb_connection_t* connection, xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection);
}

/// Returns the window for which another one is a dialog; none when it is no dialog.
xcb_window_t ownerOf(xcb_connection_t* connection, xcb_window_t window) {
    using ReplyPtr = std::unique_ptr<xcb_get_property_reply_t, void (*)(void*)>;
    const auto cookie =
        xcb_get_property(connection, 0, window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 0, 1);
    const ReplyPtr reply{xcb_get_property_reply(connection, cookie, nullptr), std::free};
    if (!reply || xcb_get_property_value_length(reply.get()) != sizeof(xcb_window_t)) return XCB_WINDOW_NONE;
    return *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
}

}  // namespace

DialogOwner::DialogOwner(const WindowSystem& windows, xcb_window_t host, xcb_window_t top)
    : windows_(windows), host_(host), top_(top) {
    selectEvents(windows_.get(), windows_.screenOf(host_), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

void DialogOwner::handle(const xcb_generic_event_t& event) const {
    constexpr std::uint8_t kKind = 0x7f;
    const int kind = event.response_type & kKind;
    if (kind == XCB_CREATE_NOTIFY) watch(reinterpret_cast<const xcb_create_notify_event_t&>(event));
    if (kind != XCB_PROPERTY_NOTIFY) return;
    const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (changed.atom == XCB_ATOM_WM_TRANSIENT_FOR) correct(changed.window);
}

void DialogOwner::watch(const xcb_create_notify_event_t& created) const {
    if (created.override_redirect != 0) return;
    selectEvents(windows_.get(), created.window, XCB_EVENT_MASK_PROPERTY_CHANGE);
    // It may have been made a dialog already.
    correct(created.window);
}

void DialogOwner::correct(xcb_window_t dialog) const {
    const xcb_window_t owner = ownerOf(windows_.get(), dialog);
    if (owner == XCB_WINDOW_NONE || windows_.parentOf(owner) != host_) return;
    xcb_change_property(windows_.get(), XCB_PROP_MODE_REPLACE, dialog, XCB_ATOM_WM_TRANSIENT_FOR,
                        XCB_ATOM_WINDOW, 32, 1, &top_);
    xcb_flush(windows_.get());
}

}  // namespace mergeloom::libreoffice
