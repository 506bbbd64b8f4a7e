#include "ui/designer/BusyBar.h"

#include <QApplication>
#include <QEvent>

namespace mergeloom {

BusyBar::BusyBar(QWidget* window) : QProgressBar(window) {
    setAccessibleName(tr("Progress"));
    setTextVisible(false);
    hide();
    window->installEventFilter(this);
}

void BusyBar::follow(const OfficeWorker& worker, const DropProgress& progress) {
    connect(&worker, &OfficeWorker::busy, this, [this] { setBusy(true); });
    connect(&worker, &OfficeWorker::idle, this, [this] { setBusy(false); });
    connect(&progress, &DropProgress::advanced, this, [this](int percent) {
        setRange(0, 100);
        setValue(percent);
    });
}

void BusyBar::setBusy(bool isBusy) {
    if (isBusy) setRange(0, 0);
    isBusy_ = isBusy;
    updateVisibility();
}

void BusyBar::updateVisibility() {
    setVisible(isBusy_ && QApplication::activeModalWidget() == nullptr);
}

bool BusyBar::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::WindowBlocked || type == QEvent::WindowUnblocked) updateVisibility();
    return QProgressBar::eventFilter(watched, event);
}

}  // namespace mergeloom
