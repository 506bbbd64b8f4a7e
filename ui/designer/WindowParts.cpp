#include "ui/designer/WindowParts.h"

#include <QKeySequence>
#include <QShortcut>
#include <QWidget>
#include <utility>

namespace mergeloom {

WindowParts::WindowParts(QWidget& window, std::vector<Part> parts)
    : QObject(&window), window_(window), parts_(std::move(parts)) {
    const auto connectKey = [this](const QKeySequence& key, Direction direction) {
        connect(new QShortcut(key, &window_), &QShortcut::activated, this,
                [this, direction] { go(direction); });
    };
    connectKey(Qt::Key_F6, Direction::Forward);
    connectKey(Qt::SHIFT | Qt::Key_F6, Direction::Back);
}

void WindowParts::go(Direction direction) {
    goFrom(window_.focusWidget(), direction);
}

void WindowParts::goFrom(const QWidget* widget, Direction direction) {
    const std::size_t step = direction == Direction::Forward ? 1 : parts_.size() - 1;
    std::size_t part = partOf(widget);
    if (part == parts_.size()) part = direction == Direction::Forward ? parts_.size() - 1 : 0;
    for (std::size_t tries = 0; tries < parts_.size(); ++tries) {
        part = (part + step) % parts_.size();
        if (!parts_[part].isAvailable()) continue;
        parts_[part].enter();
        return;
    }
}

void WindowParts::leaveFor(const QWidget& widget) {
    QWidget* const former = window_.focusWidget();
    if (former != nullptr && former != &widget) former->clearFocus();
}

/// Returns the number of parts when the widget is in none of them.
std::size_t WindowParts::partOf(const QWidget* widget) const {
    for (std::size_t part = 0; widget != nullptr && part < parts_.size(); ++part) {
        if (parts_[part].widget == widget || parts_[part].widget->isAncestorOf(widget)) return part;
    }
    return parts_.size();
}

}  // namespace mergeloom
