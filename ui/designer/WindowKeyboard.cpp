#include "ui/designer/WindowKeyboard.h"

#include "ui/designer/DesignerSession.h"
#include "ui/designer/HostArea.h"

#include <QApplication>
#include <QKeySequence>
#include <QShortcut>
#include <QSignalBlocker>
#include <utility>

namespace mergeloom {

WindowKeyboard::WindowKeyboard(QWidget& window, HostPane& document, DesignerSession& session,
                               std::vector<Part> parts)
    : window_(window), document_(document), session_(session), parts_(std::move(parts)) {
    const auto connectKey = [this](const QKeySequence& key, Direction direction) {
        connect(new QShortcut(key, &window_), &QShortcut::activated, this,
                [this, direction] { goFrom(window_.focusWidget(), direction); });
    };
    connectKey(Qt::Key_F6, Direction::Forward);
    connectKey(Qt::SHIFT | Qt::Key_F6, Direction::Back);
    connect(&document_, &HostPane::focused, this, [this] { session_.focus().enter(); });
    connect(&document_, &HostPane::returned, this, [this] { session_.focus().enterAgain(); });
    connect(&document_, &HostPane::left, this, &WindowKeyboard::leaveDocument);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* former, const QWidget* present) {
        if (present == &document_ && former != nullptr) former_ = former;
    });
}

void WindowKeyboard::begin() {
    input_.emplace(static_cast<std::uint32_t>(window_.winId()), static_cast<std::uint32_t>(document_.winId()),
                   InputOnlyWindow::Events{.documentEntered = [this] { onDocumentEntered(); },
                                           .documentLeft = [this] { onDocumentLeft(); },
                                           .activated = [this] { onActivated(); }});
}

void WindowKeyboard::goFromDocument(Direction direction) {
    goFrom(&document_, direction);
}

void WindowKeyboard::goFrom(const QWidget* widget, Direction direction) {
    const std::size_t step = direction == Direction::Forward ? 1 : parts_.size() - 1;
    std::size_t part = partOf(widget);
    if (part == parts_.size()) part = direction == Direction::Forward ? parts_.size() - 1 : 0;
    for (std::size_t tries = 0; tries < parts_.size(); ++tries) {
        part = (part + step) % parts_.size();
        if (isAvailable(parts_[part])) return enter(*parts_[part].widget);
    }
}

/// Returns the number of parts when the widget is in none of them.
std::size_t WindowKeyboard::partOf(const QWidget* widget) const {
    for (std::size_t part = 0; widget != nullptr && part < parts_.size(); ++part) {
        if (parts_[part].widget == widget || parts_[part].widget->isAncestorOf(widget)) return part;
    }
    return parts_.size();
}

bool WindowKeyboard::isAvailable(const Part& part) const {
    if (part.widget == &document_) return session_.state() == OfficeState::Running;
    return part.isAvailable();
}

void WindowKeyboard::enter(QWidget& widget) {
    if (&widget == &document_) return enterDocument();
    // First, since the window gives the keyboard to the widget that had it last.
    widget.setFocus(Qt::ShortcutFocusReason);
    input_->takeKeyboard();
}

/// The pane passes the keyboard on when it gets it.
void WindowKeyboard::enterDocument() {
    const bool hasIt = document_.hasFocus();
    document_.setFocus(Qt::ShortcutFocusReason);
    if (hasIt) session_.focus().enter();
}

/// A busy office may have got the keyboard in the meantime.
void WindowKeyboard::leaveDocument() {
    session_.focus().leave();
    if (input_) input_->takeKeyboard();
}

/// Hides the caret of the widget that had the keyboard. The pane does not get the focus: it would pass the
/// keyboard on when a click on another part activates the window.
void WindowKeyboard::onDocumentEntered() {
    QWidget* const former = window_.focusWidget();
    if (former == nullptr || former == &document_) return;
    former_ = former;
    former->clearFocus();
}

/// After a click on something without a focus, and after an office that was too late, the widget before has
/// the keyboard again. A click on another widget follows this. The pane does not take the keyboard: the
/// window has it already, or the document has got it again by a click in the meantime.
void WindowKeyboard::onDocumentLeft() {
    QWidget* const present = window_.focusWidget();
    if (present != nullptr && present != &document_) return;
    const QSignalBlocker withoutTaking(document_);
    if (former_) return former_->setFocus(Qt::OtherFocusReason);
    if (present != nullptr) present->clearFocus();
}

/// The document has the keyboard again when it had it before another window. Otherwise the toolkit would give
/// it to the first widget.
void WindowKeyboard::onActivated() {
    const QWidget* const present = window_.focusWidget();
    if (present == nullptr) return document_.setFocus(Qt::ActiveWindowFocusReason);
    if (present == &document_) session_.focus().enterAgain();
}

}  // namespace mergeloom
