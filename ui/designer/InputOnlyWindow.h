#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <cstdint>
#include <functional>

namespace mergeloom {

/// Holds the input focus of a window in a small window of its own inside it. The X server sends the keys to
/// the window under the mouse when that is inside the window with the focus. With the focus in our window
/// itself, the document inside it would receive every key while the mouse is over it.
class InputOnlyWindow final : public QAbstractNativeEventFilter {
  public:
    /// What the toolkit does not report, or not in this detail. Each is called before the toolkit has the
    /// event.
    struct Events {
        std::function<void()> documentEntered;  ///< the document got the focus
        std::function<void()> documentLeft;     ///< this window got it from the document
        std::function<void()> activated;        ///< this window got it after another window
    };

    /// The document is in the pane, a window inside the held one. Does nothing for window systems other than
    /// X11.
    InputOnlyWindow(std::uint32_t window, std::uint32_t pane, Events events);
    InputOnlyWindow(const InputOnlyWindow&) = delete;
    InputOnlyWindow& operator=(const InputOnlyWindow&) = delete;
    ~InputOnlyWindow() override;

    /// Returns the window that holds the focus; 0 for window systems other than X11.
    [[nodiscard]] std::uint32_t id() const { return id_; }
    /// Takes the keyboard from a window inside the held one.
    void takeKeyboard() const;

    /// Gives the toolkit the keys and its focus as those of the held window.
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

  private:
    void makeWindow();
    void takeFocus() const;
    bool handleFocusIn(xcb_focus_in_event_t& event);
    void reportFocus(const xcb_focus_in_event_t& event);
    bool handleFocusOut(xcb_focus_out_event_t& event) const;

    const std::uint32_t window_;
    const std::uint32_t pane_;
    const Events events_;
    std::uint32_t id_ = 0;
    bool isFromOutside_ = false;  ///< the window's own focus, which this one gets
    xcb_connection_t* connection_ = nullptr;
};

}  // namespace mergeloom
