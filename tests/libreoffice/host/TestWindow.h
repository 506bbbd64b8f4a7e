#pragma once

#include "office/model/DocumentHost.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

namespace mergeloom {

/// A window of the test with a pane for an office.
class TestWindow {
  public:
    static constexpr int kWidth = 1000;
    static constexpr int kHeight = 800;
    static constexpr int kPaneX = 100;
    static constexpr int kPaneWidth = 880;
    static constexpr int kPaneHeight = 780;

    TestWindow() : connection_(xcb_connect(nullptr, nullptr)) {
        const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        top_ = make(screen.root, 0, kWidth, kHeight);
        pane_ = make(top_, kPaneX, kPaneWidth, kPaneHeight);
        keyboard_ = make(top_, -1, 1, 1);
        dialog_ = make(screen.root, -1, 1, 1);
        const std::uint32_t withoutManager[] = {1};
        xcb_change_window_attributes(connection_, dialog_, XCB_CW_OVERRIDE_REDIRECT, withoutManager);
        xcb_map_window(connection_, dialog_);
        const std::uint32_t events[] = {XCB_EVENT_MASK_KEY_PRESS};
        xcb_change_window_attributes(connection_, keyboard_, XCB_CW_EVENT_MASK, events);
        xcb_map_window(connection_, keyboard_);
        xcb_map_window(connection_, pane_);
        xcb_map_window(connection_, top_);
        while (!isVisible(pane_)) {
        }
    }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow() { xcb_disconnect(connection_); }

    [[nodiscard]] HostWindow host() const {
        return {.id = pane_, .width = kPaneWidth, .height = kPaneHeight, .look = {}, .keyboardId = keyboard_};
    }
    void resizePane(std::uint32_t width, std::uint32_t height) const { resize(pane_, width, height); }
    /// Returns the width of the office's window inside the pane, which is the front one in its EmbedWindow.
    [[nodiscard]] int widthInside() const {
        const auto size =
            owned(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, inside()), nullptr));
        return size ? size->width : 0;
    }
    /// A line over the office's window: its place and its height; none while no such window is shown.
    struct Line {
        int x;
        int y;
        int height;
    };
    [[nodiscard]] std::optional<Line> lineInside() const {
        const xcb_window_t line = frontChild(inside());
        if (line == XCB_WINDOW_NONE || !isVisible(line)) return std::nullopt;
        const auto place =
            owned(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, line), nullptr));
        if (!place) return std::nullopt;
        return Line{place->x, place->y, place->height};
    }
    /// Gives the office's window another size than it was given, as a late event of the window system does.
    void resizeInside(std::uint32_t width, std::uint32_t height) const { resize(inside(), width, height); }
    /// Makes this object also receive the requests to paint the office's window.
    void watchPaintingInside() const {
        const std::uint32_t events[] = {XCB_EVENT_MASK_EXPOSURE};
        xcb_change_window_attributes(connection_, inside(), XCB_CW_EVENT_MASK, events);
        xcb_flush(connection_);
    }
    /// Returns true if a program instead of the server has sent such a request since the last call.
    [[nodiscard]] bool wasSentPainting() const {
        constexpr std::uint8_t kSent = 0x80;
        bool wasSent = false;
        while (const auto event = owned(xcb_poll_for_event(connection_)))
            wasSent = wasSent || event->response_type == (XCB_EXPOSE | kSent);
        return wasSent;
    }
    /// Gives the keyboard to the window itself, as a window manager does.
    void giveKeyboard() const { giveKeyboardTo(top_); }
    /// Gives it to another window of this program.
    void giveKeyboardToDialog() const { giveKeyboardTo(dialog_); }
    /// Returns true if the part of the window that receives keys instead of the document has the keyboard.
    [[nodiscard]] bool hasKeyboard() const { return windowWithKeyboard() == keyboard_; }
    [[nodiscard]] bool hasDialogKeyboard() const { return windowWithKeyboard() == dialog_; }
    /// Returns the number of keys that this part has received since the last call.
    int keysTaken() const {
        int keys = 0;
        while (const auto event = owned(xcb_poll_for_event(connection_)))
            keys += (event->response_type & 0x7f) == XCB_KEY_PRESS ? 1 : 0;
        return keys;
    }

    /// Clicks at a place of the window, and types, as a user does.
    void click(int x, int y) const { play(moveTo(x, y) + " click 1"); }
    void clickInPane(int x, int y) const { click(kPaneX + x, y); }
    void doubleClickInPane(int x, int y) const {
        play(moveTo(kPaneX + x, y) + " click --repeat 2 --delay 50 1");
    }
    /// Does both while this process is stopped, as on a busy machine.
    void clickInPaneAndTypeAtOnce(int x, int y, const std::string& text) const {
        run("kill -STOP $PPID; xdotool " + moveTo(kPaneX + x, y) + " click 1 type '" + text +
            "'; kill -CONT $PPID");
    }
    static void type(const std::string& text) { play("type --delay 5 '" + text + "'"); }
    static void press(const std::string& key) { play("key " + key); }

  private:
    template <typename Reply>
    static std::unique_ptr<Reply, void (*)(void*)> owned(Reply* reply) {
        return {reply, std::free};
    }
    /// The window has the keyboard when this returns.
    void giveKeyboardTo(xcb_window_t window) const {
        xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        (void)windowWithKeyboard();
    }
    [[nodiscard]] xcb_window_t windowWithKeyboard() const {
        const auto current =
            owned(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
        return current ? current->focus : xcb_window_t{XCB_WINDOW_NONE};
    }
    void resize(xcb_window_t window, std::uint32_t width, std::uint32_t height) const {
        const std::uint32_t size[] = {width, height};
        xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
        xcb_flush(connection_);
    }
    [[nodiscard]] xcb_window_t inside() const { return frontChild(frontChild(pane_)); }
    /// The server lists children from back to front.
    [[nodiscard]] xcb_window_t frontChild(xcb_window_t window) const {
        const auto tree =
            owned(xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr));
        if (!tree || tree->children_len == 0) return XCB_WINDOW_NONE;
        return xcb_query_tree_children(tree.get())[tree->children_len - 1];
    }
    [[nodiscard]] std::string moveTo(int x, int y) const {
        return "mousemove --window " + std::to_string(top_) + " " + std::to_string(x) + " " +
               std::to_string(y);
    }
    static void play(const std::string& command) { run("xdotool " + command); }
    static void run(const std::string& command) {
        [[maybe_unused]] const int status = std::system(command.c_str());
    }

    xcb_window_t make(xcb_window_t parent, int x, int width, int height) const {
        const xcb_window_t window = xcb_generate_id(connection_);
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, parent, static_cast<std::int16_t>(x), 0,
                          static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        return window;
    }
    [[nodiscard]] bool isVisible(xcb_window_t window) const {
        const auto reply = owned(xcb_get_window_attributes_reply(
            connection_, xcb_get_window_attributes(connection_, window), nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    xcb_connection_t* connection_;
    xcb_window_t top_ = 0;
    xcb_window_t pane_ = 0;
    xcb_window_t keyboard_ = 0;
    xcb_window_t dialog_ = 0;
};

}  // namespace mergeloom
