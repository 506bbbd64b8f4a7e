#pragma once

#include "office/model/DocumentHost.h"

#include <QTimer>
#include <QWidget>
#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;

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
    /// Returns true while the mouse rests over the document.
    [[nodiscard]] bool isResting() const { return isResting_; }
    /// Lets rested() be emitted again for a mouse that still rests.
    void forgetRest() { isResting_ = false; }
    /// Returns a point of the document on the screen.
    [[nodiscard]] QPoint onScreen(HostPoint point) const;

  Q_SIGNALS:
    /// Emitted with the size in pixels of the screen; of many changes in a short time only for the last.
    void resized(int width, int height);
    /// Emitted when the desktop's colors or font changed.
    void lookChanged(const mergeloom::HostLook& look);
    /// Emitted again and again while a drag is over the point, also while it rests.
    void draggedOver(mergeloom::HostPoint point);
    /// Emitted when the mouse rests over a point of the document, and when it moves again.
    void rested(mergeloom::HostPoint point);
    void restEnded();
    /// Emitted when the drag ended, or left the pane.
    void dragLeft();
    /// Emitted when the pane got the focus, which belongs to the document.
    void focused();
    /// Emitted when the pane has the focus again after another window had it.
    void returned();
    /// Emitted when another widget of the window got the focus after the pane.
    void left();

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    [[nodiscard]] HostPoint pixelsAt(QPointF position) const;
    void endDrag();
    void emitDragPoint();
    void watchPointer();
    void emitSize();

    QTimer resizeTimer_;
    QTimer dragTimer_;
    QTimer pointerTimer_;
    QPoint pointer_;  ///< on the screen
    bool isResting_ = false;
    std::optional<HostPoint> dragPoint_;
    std::optional<HostPoint> dropPoint_;
};

/// The panel in place of the document while there is none: the office starts, or it has ended.
class OfficePanel final : public QWidget {
    Q_OBJECT

  public:
    explicit OfficePanel(QWidget* parent);

    void showStarting();
    /// Shows that the office runs and opens a template, which cannot be cancelled any more.
    void showOpening();
    /// Shows the sentence, which says why there is no document.
    void showStopped(const QString& sentence);

  Q_SIGNALS:
    void cancelRequested();
    void startRequested();

  private:
    void showProgress(const QString& sentence, bool canBeCancelled);

    QLabel* sentence_;
    QProgressBar* progress_;
    QPushButton* cmdCancel_;
    QPushButton* cmdStart_;
};

/// The right side of the window: the office's pane with the panel over it. The pane keeps its place under the
/// panel, since an office starts in an existing window.
class HostArea final : public QWidget {
    Q_OBJECT

  public:
    explicit HostArea(QWidget* parent);

    [[nodiscard]] HostPane& pane() { return *pane_; }
    [[nodiscard]] OfficePanel& panel() { return *panel_; }
    void setPanelVisible(bool visible);

    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    HostPane* pane_;
    OfficePanel* panel_;
};

}  // namespace mergeloom
