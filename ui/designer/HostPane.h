#pragma once

#include "office/model/DocumentHost.h"

#include <QTimer>
#include <QWidget>
#include <optional>

namespace mergeloom {

/// The native window in which the office shows its document, and the target of drags from the tree.
class HostPane final : public QWidget {
    Q_OBJECT

  public:
    explicit HostPane(QWidget* parent);

    /// Returns the native window, which is made on first use.
    [[nodiscard]] HostWindow hostWindow() const;
    /// Returns the point of the last drop and forgets it; none when the drag ended elsewhere.
    std::optional<HostPoint> takeDropPoint();

  Q_SIGNALS:
    /// Emitted with the size in pixels of the screen; of many changes in a short time only for the last.
    void resized(int width, int height);
    /// Emitted while a drag is over the point, at most 20 times a second.
    void draggedOver(mergeloom::HostPoint point);
    /// Emitted when the pane got the focus, which belongs to the document.
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
