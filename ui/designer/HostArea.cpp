#include "ui/designer/HostArea.h"

#include "ui/designer/HostPane.h"
#include "ui/designer/OfficePanel.h"

namespace mergeloom {

HostArea::HostArea(QWidget* parent)
    : QWidget(parent), pane_(new HostPane(this)), panel_(new OfficePanel(this)) {
    setPanelVisible(true);
}

void HostArea::setPanelVisible(bool visible) {
    panel_->setVisible(visible);
    if (visible) panel_->raise();
}

QSize HostArea::minimumSizeHint() const {
    return panel_->minimumSizeHint();
}

void HostArea::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    pane_->setGeometry(rect());
    panel_->setGeometry(rect());
}

}  // namespace mergeloom
