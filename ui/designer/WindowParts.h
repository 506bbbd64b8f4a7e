#pragma once

#include <QObject>
#include <cstddef>
#include <functional>
#include <vector>

class QWidget;

namespace mergeloom {

/// Moves the keyboard round the parts of a window: F6 to the next one, Shift+F6 to the previous one.
class WindowParts final : public QObject {
    Q_OBJECT

  public:
    enum class Direction { Forward, Back };

    /// A part of the window. It has the keyboard while its widget or one in it has.
    struct Part {
        QWidget* widget;
        std::function<void()> enter;
        std::function<bool()> isAvailable = [] { return true; };
    };

    /// The parts follow each other, the first one after the last.
    WindowParts(QWidget& window, std::vector<Part> parts);

    /// Enters the part next to the one that has the keyboard; the first one when none has.
    void go(Direction direction);
    /// Enters the part next to that of the widget.
    void goFrom(const QWidget* widget, Direction direction);
    /// Hides the caret of the part that had the keyboard before the widget. The widget itself does not get
    /// the focus: it would pass the keyboard on when a click on another part activates the window.
    void leaveFor(const QWidget& widget);

  private:
    [[nodiscard]] std::size_t partOf(const QWidget* widget) const;

    QWidget& window_;
    std::vector<Part> parts_;
};

}  // namespace mergeloom
