#pragma once

#include "office/libreoffice/host/DialogOwner.h"
#include "office/libreoffice/host/WindowEvents.h"
#include "office/libreoffice/host/WindowSystem.h"
#include "office/model/DocumentHost.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace mergeloom::libreoffice {

/// Gives the input focus to the window that the user clicks, of the office and the window around it, which
/// belong to different programs: neither a window manager nor LibreOffice does so for a window inside another
/// one. The clicks are passed on. Keys of the window that are pressed in the office's are reported instead.
class ClickFocus {
  public:
    /// Raises kNotAvailable when there is no X server.
    ClickFocus(const HostWindow& host, HostListener& listener);
    ClickFocus(const ClickFocus&) = delete;
    ClickFocus& operator=(const ClickFocus&) = delete;
    ~ClickFocus() = default;

    /// Return the numbers of clicks on the office and beside it until now.
    [[nodiscard]] std::uint32_t clicksOnOffice() const { return clicksOnOffice_; }
    [[nodiscard]] std::uint32_t clicksBeside() const { return clicksBeside_; }
    /// Returns false after the user has left the office, until it is given the keyboard.
    [[nodiscard]] bool mayOfficeTakeKeyboard() const {
        const std::lock_guard lock(mutex_);
        return mayOfficeTakeKeyboard_;
    }
    /// Returns true if another window of the program that shows the office has the keyboard.
    [[nodiscard]] bool isKeyboardBeside() const { return windows_.isKeyboardBeside(top_); }
    /// Gives the keyboard to the office's window, unless another window of the program has it.
    void giveKeyboard(xcb_window_t inner);
    /// Takes the keyboard from the office, also when it takes it later.
    void takeKeyboard();
    /// While disabled, clicks do not give the focus to the office.
    void setEnabled(bool enabled) { isEnabled_ = enabled; }
    /// During a preview the keys that show another record are the window's, too.
    void beginPreview() const;
    void endPreview() const;

  private:
    struct Key {
        xcb_keycode_t code;
        std::uint16_t modifiers;
        HostKey key;
        bool isForPreview;
    };

    void grabClicks(xcb_window_t window, std::span<const std::uint16_t> modifiers) const;
    void grabClicksAround();
    void findKeys();
    void grab(const Key& key) const;
    void release(const Key& key) const;
    void handle(const xcb_generic_event_t& event);
    void follow(const xcb_button_press_event_t& click);
    void passOn(const xcb_focus_in_event_t& event) const;
    void noteLeaving(const xcb_focus_in_event_t& event, std::uint32_t request);
    void takeBack(const xcb_focus_in_event_t& event);
    void report(const xcb_key_press_event_t& key);

    WindowSystem windows_;
    const xcb_window_t host_;
    const xcb_window_t top_;
    xcb_window_t frame_ = XCB_WINDOW_NONE;  ///< around top_, or top_ itself, while its clicks are grabbed
    const xcb_window_t keyboard_;           ///< has the keyboard while the office does not
    const DialogOwner dialogs_;
    HostListener& listener_;
    std::vector<Key> keys_;  ///< those of the window
    std::atomic<bool> isEnabled_ = true;
    mutable std::mutex mutex_;
    // The mutex guards these.
    bool mayOfficeTakeKeyboard_ = true;  ///< by itself
    std::uint32_t given_ = 0;            ///< the last request that gave it the keyboard
    std::atomic<std::uint32_t> clicksOnOffice_ = 0;
    std::atomic<std::uint32_t> clicksBeside_ = 0;
    std::optional<WindowEvents> events_;  ///< ends first
};

}  // namespace mergeloom::libreoffice
