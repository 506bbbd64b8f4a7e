#include "office/libreoffice/host/ClickFocus.h"

#include <algorithm>

namespace mergeloom::libreoffice {

namespace {

/// The left, the middle and the right button; the wheel does not move the focus.
constexpr std::uint8_t kButtons[] = {1, 2, 3};

constexpr xcb_keysym_t kF1 = 0xffbe;
constexpr xcb_keysym_t kF5 = 0xffc2;
constexpr xcb_keysym_t kF6 = 0xffc3;
constexpr xcb_keysym_t kLeft = 0xff51;
constexpr xcb_keysym_t kRight = 0xff53;

struct WindowKey {
    xcb_keysym_t symbol;
    std::uint16_t modifiers;
    HostKey key;
    bool isForPreview;  ///< true if it is the window's during a preview alone
};

constexpr WindowKey kWindowKeys[] = {
    {kF1, 0, HostKey::Help, false},
    {kF5, 0, HostKey::Preview, false},
    {kF6, 0, HostKey::NextPart, false},
    {kF6, XCB_MOD_MASK_SHIFT, HostKey::PreviousPart, false},
    {kRight, XCB_MOD_MASK_1, HostKey::NextRecord, true},
    {kLeft, XCB_MOD_MASK_1, HostKey::PreviousRecord, true},
};

/// The modifiers that change the meaning of a key; 1 is Alt.
constexpr std::uint16_t kModifiers = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;

constexpr std::uint16_t kEveryModifier[] = {XCB_MOD_MASK_ANY};

/// Caps Lock and Num Lock, which do not change it.
constexpr std::uint16_t kLocks[] = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

}  // namespace

ClickFocus::ClickFocus(const HostWindow& host, HostListener& listener)
    : host_(static_cast<xcb_window_t>(host.id)),
      top_(windows_.topWindow(host_)),
      keyboard_(static_cast<xcb_window_t>(host.keyboardId)),
      dialogs_(windows_, host_, top_),
      listener_(listener) {
    constexpr std::uint32_t kFocus = XCB_EVENT_MASK_FOCUS_CHANGE;
    constexpr std::uint32_t kFocusAndMouse =
        kFocus | XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW;
    xcb_change_window_attributes(windows_.get(), host_, XCB_CW_EVENT_MASK, &kFocusAndMouse);
    if (top_ != host_) xcb_change_window_attributes(windows_.get(), top_, XCB_CW_EVENT_MASK, &kFocus);
    if (keyboard_ != top_)
        xcb_change_window_attributes(windows_.get(), keyboard_, XCB_CW_EVENT_MASK, &kFocus);
    grabClicks(host_, kEveryModifier);
    grabClicksAround();
    findKeys();
    for (const Key& key : keys_)
        if (!key.isForPreview) grab(key);
    xcb_flush(windows_.get());
    events_.emplace(windows_.get(), [this](const xcb_generic_event_t& event) { handle(event); });
}

/// Makes the X server queue each click, and the keys after it, until follow() releases them. Keys that are
/// typed right after a click are thus sent to the clicked window, even if this process is slow.
void ClickFocus::grabClicks(xcb_window_t window, std::span<const std::uint16_t> modifiers) const {
    for (const std::uint8_t button : kButtons) {
        for (const std::uint16_t modifier : modifiers) {
            xcb_grab_button(windows_.get(), 1, window, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_SYNC,
                            XCB_GRAB_MODE_SYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE, button, modifier);
        }
    }
}

/// Grabs the clicks on the window manager's frame while the mouse is beside the document. A window manager
/// grabs those on the window itself, and only one program can do so; it also handles them later than the keys
/// that follow them. Clicks on the document are not grabbed there: the window manager's own grab, which is
/// next, would let those keys pass before the click. Clicks with Alt on the frame belong to window managers.
void ClickFocus::grabClicksAround() {
    const xcb_window_t frame = windows_.outermostWindow(top_);
    const bool isWanted = frame != host_ && !windows_.isMouseOver(host_);
    const xcb_window_t wanted = isWanted ? frame : xcb_window_t{XCB_WINDOW_NONE};
    if (wanted == frame_) return;
    if (frame_ != XCB_WINDOW_NONE)
        xcb_ungrab_button(windows_.get(), XCB_BUTTON_INDEX_ANY, frame_, XCB_MOD_MASK_ANY);
    frame_ = wanted;
    if (isWanted) grabClicks(frame_, kLocks);
    xcb_flush(windows_.get());
}

void ClickFocus::findKeys() {
    for (const WindowKey& key : kWindowKeys) {
        const xcb_keycode_t code = windows_.keyCodeOf(key.symbol);
        if (code != 0) keys_.push_back({code, key.modifiers, key.key, key.isForPreview});
    }
}

/// The server reports a grabbed key that is pressed while the focus is in a window of the office's.
void ClickFocus::grab(const Key& key) const {
    for (const std::uint16_t locks : kLocks) {
        xcb_grab_key(windows_.get(), 0, host_, static_cast<std::uint16_t>(key.modifiers | locks), key.code,
                     XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    }
}

void ClickFocus::release(const Key& key) const {
    for (const std::uint16_t locks : kLocks) {
        xcb_ungrab_key(windows_.get(), key.code, host_, static_cast<std::uint16_t>(key.modifiers | locks));
    }
}

void ClickFocus::beginPreview() const {
    for (const Key& key : keys_)
        if (key.isForPreview) grab(key);
    xcb_flush(windows_.get());
}

void ClickFocus::endPreview() const {
    for (const Key& key : keys_)
        if (key.isForPreview) release(key);
    xcb_flush(windows_.get());
}

void ClickFocus::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t kKind = 0x7f;
    const int kind = event.response_type & kKind;
    if (kind == XCB_BUTTON_PRESS) follow(reinterpret_cast<const xcb_button_press_event_t&>(event));
    dialogs_.handle(event);
    // DialogOwner requests the first of these events. A window manager makes the frame, also anew after its
    // own restart.
    const bool hasNewFrame = kind == XCB_REPARENT_NOTIFY &&
                             reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window == top_;
    if (hasNewFrame || kind == XCB_ENTER_NOTIFY || kind == XCB_LEAVE_NOTIFY) grabClicksAround();
    if (kind == XCB_FOCUS_IN) {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        passOn(focus);
        noteLeaving(focus, event.full_sequence);
        takeBack(focus);
    }
    if (kind == XCB_KEY_PRESS) report(reinterpret_cast<const xcb_key_press_event_t&>(event));
}

/// A window manager gives the keyboard to the window itself, where keys would go to the document while the
/// mouse is over it. The window also passes it on, but only when it is not busy.
void ClickFocus::passOn(const xcb_focus_in_event_t& event) const {
    const bool isGiven = event.event == top_ && (event.mode == XCB_NOTIFY_MODE_NORMAL ||
                                                 event.mode == XCB_NOTIFY_MODE_WHILE_GRABBED);
    if (isGiven && keyboard_ != top_) windows_.moveKeyboard(top_, keyboard_);
}

/// The window takes the keyboard from the office when the user leaves it by a key. The event may be older
/// than the last time that the office was given it.
void ClickFocus::noteLeaving(const xcb_focus_in_event_t& event, std::uint32_t request) {
    if (event.event != keyboard_ || event.detail != XCB_NOTIFY_DETAIL_NONLINEAR) return;
    const std::lock_guard lock(mutex_);
    if (request >= given_) mayOfficeTakeKeyboard_ = false;
}

/// A busy office takes the keyboard long after it was asked to, or when it has opened a document. A later
/// click counts more.
void ClickFocus::takeBack(const xcb_focus_in_event_t& event) {
    const bool isForOffice = event.event == host_ && (event.detail == XCB_NOTIFY_DETAIL_VIRTUAL ||
                                                      event.detail == XCB_NOTIFY_DETAIL_NONLINEAR_VIRTUAL);
    if (!isForOffice) return;
    const std::lock_guard lock(mutex_);
    if (!mayOfficeTakeKeyboard_) windows_.takeKeyboard(host_, keyboard_);
}

void ClickFocus::giveKeyboard(xcb_window_t inner) {
    const std::lock_guard lock(mutex_);
    mayOfficeTakeKeyboard_ = true;
    if (isKeyboardBeside()) return;
    given_ = windows_.giveKeyboardTo(inner, XCB_CURRENT_TIME);
}

void ClickFocus::takeKeyboard() {
    const std::lock_guard lock(mutex_);
    mayOfficeTakeKeyboard_ = false;
    windows_.takeKeyboard(host_, keyboard_);
}

/// While it is disabled, the window has a question or works on the document.
void ClickFocus::report(const xcb_key_press_event_t& key) {
    if (!isEnabled_) return;
    const auto isPressed = [&](const Key& known) {
        return known.code == key.detail && known.modifiers == (key.state & kModifiers);
    };
    const auto found = std::ranges::find_if(keys_, isPressed);
    if (found != keys_.end()) listener_.keyPressed(found->key);
}

/// The click counts more than what gave the keyboard to another window in the meantime, which the server
/// would prefer to the time of the click. The window around the document never has the keyboard itself: keys
/// would go to the document as soon as the mouse is over it.
void ClickFocus::follow(const xcb_button_press_event_t& click) {
    const std::lock_guard lock(mutex_);
    if (click.event == host_) {
        ++clicksOnOffice_;
        mayOfficeTakeKeyboard_ = true;
        const xcb_window_t inner = windows_.innerWindow(host_);
        if (isEnabled_ && inner != XCB_WINDOW_NONE) given_ = windows_.giveKeyboardTo(inner, XCB_CURRENT_TIME);
    } else if (!windows_.isMouseOver(host_)) {
        ++clicksBeside_;
        mayOfficeTakeKeyboard_ = false;
        windows_.giveKeyboardTo(keyboard_, click.time);
    }
    // By the time of the click the server would not release a second grab of it, since keys may have passed.
    xcb_allow_events(windows_.get(), XCB_ALLOW_REPLAY_POINTER, XCB_CURRENT_TIME);
    xcb_flush(windows_.get());
}

}  // namespace mergeloom::libreoffice
