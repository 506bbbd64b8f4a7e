#pragma once

#include "office/model/DocumentHost.h"

#include <QTimer>
#include <QWidget>
#include <optional>

namespace mergeloom {

/// The native window in which the office shows its document, and where drags from the tree end.
class HostPane final : public QWidget {
    Q_OBJECT

  public:
    explicit HostPane(QWidget* parent);

    /// The native window, which is made when this is first asked.
    [[nodiscard]] HostWindow hostWindow() const;
    /// Where the last drag was dropped, told once; none when it ended elsewhere.
    std::optional<HostPoint> takeDropPoint();

  Q_SIGNALS:
    /// In pixels of the screen. Of many changes in a short time only the last is told.
    void resized(int width, int height);
    /// A drag is over the point; told at most 20 times a second.
    void draggedOver(mergeloom::HostPoint point);
    /// The pane got the keyboard, which belongs to the document.
    void focused();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    [[nodiscard]] HostPoint pixelsAt(QPointF position) const;
    void emitDragPoint();
    void emitSize();

    QTimer resizeTimer_;
    QTimer dragTimer_;
    std::optional<HostPoint> dragPoint_;
    std::optional<HostPoint> dropPoint_;
};

}  // namespace mergeloom
