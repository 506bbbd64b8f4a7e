#include "office/libreoffice/host/WindowSystem.h"

#include "base/AutomationError.h"

#include <cstdlib>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

/// Longer than the time within which two clicks make a double click.
constexpr xcb_timestamp_t kBetweenClicks = 5000;
constexpr std::uint8_t kLeftButton = 1;

/// The server's replies have to be freed.
template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, void (*)(void*)>;

template <typename Reply>
ReplyPtr<Reply> owned(Reply* reply) {
    return {reply, std::free};
}

xcb_atom_t atomOf(xcb_connection_t* connection, std::string_view name) {
    const auto cookie = xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = owned(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool isVisible(xcb_connection_t* connection, xcb_window_t window) {
    const auto reply = owned(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_button_press_event_t buttonAt(xcb_window_t window, HostPoint point, std::uint8_t button) {
    xcb_button_press_event_t event{};
    event.response_type = XCB_BUTTON_PRESS;
    event.detail = button;
    event.event = window;
    event.event_x = static_cast<std::int16_t>(point.x);
    event.event_y = static_cast<std::int16_t>(point.y);
    event.same_screen = 1;
    return event;
}

}  // namespace

WindowSystem::WindowSystem() : connection_(xcb_connect(nullptr, nullptr), xcb_disconnect) {
    if (xcb_connection_has_error(get()) == 0) return;
    throw AutomationError(kNotAvailable,
                          "LibreOffice could not be started: there is no X server for its window.");
}

xcb_window_t WindowSystem::innerWindow(xcb_window_t host) const {
    const xcb_window_t embedWindow = topChild(host, [](xcb_window_t /*child*/) { return true; });
    return embedWindow == XCB_WINDOW_NONE ? embedWindow : officeWindowIn(embedWindow);
}

xcb_window_t WindowSystem::officeWindowIn(xcb_window_t embedWindow) const {
    return topChild(embedWindow, [&](xcb_window_t child) { return !areOfOneProgram(child, embedWindow); });
}

/// The server gives each client a range of identifiers of its own.
bool WindowSystem::areOfOneProgram(xcb_window_t one, xcb_window_t other) const {
    const std::uint32_t client = ~xcb_get_setup(get())->resource_id_mask;
    return ((one ^ other) & client) == 0;
}

xcb_window_t WindowSystem::topChild(xcb_window_t window,
                                    const std::function<bool(xcb_window_t)>& counts) const {
    const auto reply = owned(xcb_query_tree_reply(get(), xcb_query_tree(get(), window), nullptr));
    if (!reply) return XCB_WINDOW_NONE;
    const xcb_window_t* const children = xcb_query_tree_children(reply.get());
    for (int index = xcb_query_tree_children_length(reply.get()); index > 0; --index) {
        const xcb_window_t child = children[index - 1];
        if (counts(child) && isVisible(get(), child)) return child;
    }
    return XCB_WINDOW_NONE;
}

xcb_window_t WindowSystem::screenOf(xcb_window_t window) const {
    const auto reply = owned(xcb_query_tree_reply(get(), xcb_query_tree(get(), window), nullptr));
    return reply ? reply->root : xcb_window_t{XCB_WINDOW_NONE};
}

xcb_window_t WindowSystem::parentOf(xcb_window_t window) const {
    const auto reply = owned(xcb_query_tree_reply(get(), xcb_query_tree(get(), window), nullptr));
    if (!reply || reply->parent == reply->root) return XCB_WINDOW_NONE;
    return reply->parent;
}

bool WindowSystem::hasProperty(xcb_window_t window, xcb_atom_t property) const {
    const auto cookie = xcb_get_property(get(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    const auto reply = owned(xcb_get_property_reply(get(), cookie, nullptr));
    return reply && reply->type != XCB_ATOM_NONE;
}

/// Window managers mark the program's own window, which they put into one of theirs.
xcb_window_t WindowSystem::topWindow(xcb_window_t window) const {
    const xcb_atom_t mark = atomOf(get(), "WM_STATE");
    xcb_window_t top = window;
    while (mark == XCB_ATOM_NONE || !hasProperty(top, mark)) {
        const xcb_window_t parent = parentOf(top);
        if (parent == XCB_WINDOW_NONE) return top;
        top = parent;
    }
    return top;
}

xcb_window_t WindowSystem::outermostWindow(xcb_window_t window) const {
    for (xcb_window_t parent = window; parent != XCB_WINDOW_NONE; parent = parentOf(window))
        window = parent;
    return window;
}

xcb_window_t WindowSystem::windowWithKeyboard() const {
    const auto reply = owned(xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

bool WindowSystem::isIn(xcb_window_t window, xcb_window_t outer) const {
    while (window != XCB_WINDOW_NONE && window != outer)
        window = parentOf(window);
    return window != XCB_WINDOW_NONE;
}

bool WindowSystem::hasKeyboard(xcb_window_t window) const {
    return isIn(windowWithKeyboard(), window);
}

bool WindowSystem::isKeyboardBeside(xcb_window_t topWindow) const {
    const xcb_window_t focus = windowWithKeyboard();
    return areOfOneProgram(focus, topWindow) && !isIn(focus, topWindow);
}

bool WindowSystem::isMouseOver(xcb_window_t window) const {
    const auto mouse = owned(xcb_query_pointer_reply(get(), xcb_query_pointer(get(), window), nullptr));
    const auto size = owned(xcb_get_geometry_reply(get(), xcb_get_geometry(get(), window), nullptr));
    if (!mouse || !size) return false;
    return mouse->win_x >= 0 && mouse->win_y >= 0 && mouse->win_x < size->width &&
           mouse->win_y < size->height;
}

xcb_keycode_t WindowSystem::keyCodeOf(xcb_keysym_t symbol) const {
    const xcb_setup_t& setup = *xcb_get_setup(get());
    const xcb_keycode_t first = setup.min_keycode;
    const auto count = static_cast<std::uint8_t>(setup.max_keycode - first + 1);
    const auto reply =
        owned(xcb_get_keyboard_mapping_reply(get(), xcb_get_keyboard_mapping(get(), first, count), nullptr));
    if (!reply) return 0;
    const xcb_keysym_t* const symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (std::size_t key = 0; key < count; ++key) {
        if (symbols[key * reply->keysyms_per_keycode] == symbol)
            return static_cast<xcb_keycode_t>(first + key);
    }
    return 0;
}

std::uint32_t WindowSystem::giveKeyboardTo(xcb_window_t window, xcb_timestamp_t time) const {
    const xcb_void_cookie_t request = xcb_set_input_focus(get(), XCB_INPUT_FOCUS_PARENT, window, time);
    waitForServer();
    return request.sequence;
}

void WindowSystem::moveKeyboard(xcb_window_t from, xcb_window_t to) const {
    giveKeyboardIf([&] { return windowWithKeyboard() == from; }, to);
}

void WindowSystem::takeKeyboard(xcb_window_t from, xcb_window_t to) const {
    giveKeyboardIf([&] { return hasKeyboard(from); }, to);
}

template <typename Condition>
void WindowSystem::giveKeyboardIf(const Condition& condition, xcb_window_t to) const {
    xcb_grab_server(get());
    if (condition()) xcb_set_input_focus(get(), XCB_INPUT_FOCUS_PARENT, to, XCB_CURRENT_TIME);
    xcb_ungrab_server(get());
    xcb_flush(get());
}

void WindowSystem::click(xcb_window_t window, HostPoint point) {
    clicks_ += kBetweenClicks;
    xcb_button_press_event_t event = buttonAt(window, point, kLeftButton);
    event.time = clicks_;
    sendPressAndRelease(event, XCB_BUTTON_MASK_1);
}

void WindowSystem::turnWheel(xcb_window_t window, HostPoint point, WheelTurn turn) const {
    sendPressAndRelease(buttonAt(window, point, static_cast<std::uint8_t>(turn)), 0);
}

void WindowSystem::sendPressAndRelease(xcb_button_press_event_t event, std::uint16_t stateOfRelease) const {
    xcb_send_event(get(), 0, event.event, XCB_EVENT_MASK_BUTTON_PRESS, reinterpret_cast<const char*>(&event));
    event.response_type = XCB_BUTTON_RELEASE;
    event.state = stateOfRelease;
    xcb_send_event(get(), 0, event.event, XCB_EVENT_MASK_BUTTON_RELEASE,
                   reinterpret_cast<const char*>(&event));
    waitForServer();
}

void WindowSystem::sendEmptyDamage(xcb_window_t window) const {
    if (window == XCB_WINDOW_NONE) return;  // It would mean the window under the mouse.
    xcb_expose_event_t event{};
    event.response_type = XCB_EXPOSE;
    event.window = window;
    xcb_send_event(get(), 0, window, XCB_EVENT_MASK_EXPOSURE, reinterpret_cast<const char*>(&event));
    xcb_flush(get());
}

/// The server works in order, so after its reply the events have been sent.
void WindowSystem::waitForServer() const {
    owned(xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
}

}  // namespace mergeloom::libreoffice
