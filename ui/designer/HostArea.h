#pragma once

#include <QWidget>

namespace mergeloom {

class HostPane;
class OfficePanel;

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
