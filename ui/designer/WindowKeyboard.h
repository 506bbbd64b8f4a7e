#pragma once

#include "ui/designer/InputOnlyWindow.h"

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace mergeloom {

class DesignerSession;
class HostPane;

/// Shares the keyboard of the designer's window between its parts, one of which is the hosted document. F6
/// moves it to the next part, Shift+F6 to the previous one. The toolkit does not know that the document has
/// the keyboard.
class WindowKeyboard final : public QObject {
    Q_OBJECT

  public:
    enum class Direction { Forward, Back };

    /// A part of the window. It has the keyboard while its widget or one in it has.
    struct Part {
        QWidget* widget;
        std::function<bool()> isAvailable = [] { return true; };
    };

    /// The parts follow each other, the first one after the last. The pane of the document is one of them.
    WindowKeyboard(QWidget& window, HostPane& document, DesignerSession& session, std::vector<Part> parts);

    /// Begins to follow the keyboard. The window is shown before.
    void begin();
    /// Returns the window that has the keyboard while the document does not; 0 for window systems other than
    /// X11.
    [[nodiscard]] std::uint32_t inputWindow() const { return input_->id(); }
    /// Enters the part next to the document.
    void goFromDocument(Direction direction);

  private:
    void goFrom(const QWidget* widget, Direction direction);
    [[nodiscard]] std::size_t partOf(const QWidget* widget) const;
    [[nodiscard]] bool isAvailable(const Part& part) const;
    void enter(QWidget& widget);
    void enterDocument();
    void leaveDocument();
    void onDocumentEntered();
    void onDocumentLeft();
    void onActivated();

    QWidget& window_;
    HostPane& document_;
    DesignerSession& session_;
    std::vector<Part> parts_;
    QPointer<QWidget> former_;  ///< had the keyboard before the document
    std::optional<InputOnlyWindow> input_;
};

}  // namespace mergeloom
