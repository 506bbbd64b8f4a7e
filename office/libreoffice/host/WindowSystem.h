#pragma once

#include "office/model/DocumentHost.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace mergeloom::libreoffice {

/// The mouse buttons that X uses for the wheel.
enum class WheelTurn : std::uint8_t { Up = 4, Down = 5, Left = 6, Right = 7 };

/// A connection of our own to the X server of the environment variable DISPLAY. For windows that are gone,
/// all members do nothing.
class WindowSystem {
  public:
    /// Connects. Raises kNotAvailable when there is no such server.
    WindowSystem();

    [[nodiscard]] xcb_connection_t* get() const { return connection_.get(); }
    /// Returns the office's window that covers the others in a window of ours, inside its EmbedWindow; none
    /// when there is none.
    [[nodiscard]] xcb_window_t innerWindow(xcb_window_t host) const;
    /// Returns the office's window in front of its others in an EmbedWindow, which may contain windows of
    /// ours; none when there is none.
    [[nodiscard]] xcb_window_t officeWindowIn(xcb_window_t embedWindow) const;
    /// Returns the root window of the screen that shows the window.
    [[nodiscard]] xcb_window_t screenOf(xcb_window_t window) const;
    /// Returns the top-level window that contains the window.
    [[nodiscard]] xcb_window_t topWindow(xcb_window_t window) const;
    /// Returns the frame that a window manager has put around the window; without one the window itself.
    [[nodiscard]] xcb_window_t outermostWindow(xcb_window_t window) const;
    /// Returns the window that contains the window; none for a top-level window.
    [[nodiscard]] xcb_window_t parentOf(xcb_window_t window) const;
    /// Returns true if keys go to the window or to one inside it.
    [[nodiscard]] bool hasKeyboard(xcb_window_t window) const;
    /// Returns true if keys go to another top-level window of the program that has made this one.
    [[nodiscard]] bool isKeyboardBeside(xcb_window_t topWindow) const;
    /// Returns true if the mouse is over the window.
    [[nodiscard]] bool isMouseOver(xcb_window_t window) const;

    /// Returns the code of the key that produces the symbol without Shift; 0 when there is none.
    [[nodiscard]] xcb_keycode_t keyCodeOf(xcb_keysym_t symbol) const;
    /// Returns the number of the request. Events that the server sent before have lower ones.
    std::uint32_t giveKeyboardTo(xcb_window_t window, xcb_timestamp_t time) const;
    /// Gives the keyboard of one window to another one, unless a third one has it.
    void moveKeyboard(xcb_window_t from, xcb_window_t to) const;
    /// Does the same, also if a window inside the first one has the keyboard.
    void takeKeyboard(xcb_window_t from, xcb_window_t to) const;
    /// Sends a click of the left button; the window's owner has it when this returns.
    void click(xcb_window_t window, HostPoint point);
    /// Sends a turn of the mouse's wheel at the point by one notch, or of the wheel across it.
    void turnWheel(xcb_window_t window, HostPoint point, WheelTurn turn) const;
    /// Sends the window's owner a request to paint no pixels, which changes nothing.
    void sendEmptyDamage(xcb_window_t window) const;
    /// Waits until the server has processed all earlier requests.
    void waitForServer() const;

  private:
    void sendPressAndRelease(xcb_button_press_event_t event, std::uint16_t stateOfRelease) const;
    /// Returns the visible child in front among those that match; none if there is none.
    [[nodiscard]] xcb_window_t topChild(xcb_window_t window,
                                        const std::function<bool(xcb_window_t)>& counts) const;
    [[nodiscard]] bool hasProperty(xcb_window_t window, xcb_atom_t property) const;
    [[nodiscard]] xcb_window_t windowWithKeyboard() const;
    /// Returns true if one program has made both windows.
    [[nodiscard]] bool areOfOneProgram(xcb_window_t one, xcb_window_t other) const;
    /// Returns true if the windows are the same, or if the first one is inside the second.
    [[nodiscard]] bool isIn(xcb_window_t window, xcb_window_t outer) const;
    /// The server does nothing else between the condition and the change.
    template <typename Condition>
    void giveKeyboardIf(const Condition& condition, xcb_window_t to) const;

    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection_;
    xcb_timestamp_t clicks_ = 0;  ///< the time of the last one, in a time of its own
};

}  // namespace mergeloom::libreoffice
