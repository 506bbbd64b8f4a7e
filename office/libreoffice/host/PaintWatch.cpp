#include "office/libreoffice/host/PaintWatch.h"

#include <cstdlib>
#include <memory>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// Returns the number of the extension's first event; 0 if the server does not have it. The server refuses
/// other requests of the extension before a request for the version.
std::uint8_t firstDamageEvent(xcb_connection_t* connection) {
    const xcb_query_extension_reply_t* const extension = xcb_get_extension_data(connection, &xcb_damage_id);
    if (extension == nullptr || extension->present == 0) return 0;
    const auto cookie =
        xcb_damage_query_version(connection, XCB_DAMAGE_MAJOR_VERSION, XCB_DAMAGE_MINOR_VERSION);
    const std::unique_ptr<void, void (*)(void*)> reply(
        xcb_damage_query_version_reply(connection, cookie, nullptr), std::free);
    return reply ? extension->first_event : 0;
}

}  // namespace

PaintWatch::PaintWatch(std::function<void()> sink)
    : firstEvent_(firstDamageEvent(windows_.get())), sink_(std::move(sink)) {
    if (!isAvailable()) return;
    events_.emplace(windows_.get(), [this](const xcb_generic_event_t& event) {
        constexpr std::uint8_t kKind = 0x7f;
        if ((event.response_type & kKind) == firstEvent_ + XCB_DAMAGE_NOTIFY) sink_();
    });
}

/// The damage of a former window ends with that window, which may be gone already.
bool PaintWatch::watch(xcb_window_t window) {
    if (!isAvailable()) return false;
    if (window_ != window) {
        window_ = window;
        damage_ = xcb_generate_id(windows_.get());
        xcb_damage_create(windows_.get(), damage_, window_, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    }
    xcb_damage_subtract(windows_.get(), damage_, XCB_NONE, XCB_NONE);
    xcb_flush(windows_.get());
    return true;
}

}  // namespace mergeloom::libreoffice
