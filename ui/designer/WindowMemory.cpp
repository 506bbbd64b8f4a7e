#include "ui/designer/WindowMemory.h"

#include <QSplitter>
#include <QWidget>

namespace mergeloom {

namespace {

const QString& geometryKey() {
    static const QString key = QStringLiteral("window/geometry");
    return key;
}

const QString& splitterKey() {
    static const QString key = QStringLiteral("window/splitter");
    return key;
}

}  // namespace

WindowMemory::WindowMemory()
    : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("mergeloom"),
                QStringLiteral("designer")) {}

void WindowMemory::restore(QWidget& window, QSplitter& splitter) {
    window.restoreGeometry(settings_.value(geometryKey()).toByteArray());
    splitter.restoreState(settings_.value(splitterKey()).toByteArray());
}

void WindowMemory::keep(const QWidget& window, const QSplitter& splitter) {
    settings_.setValue(geometryKey(), window.saveGeometry());
    settings_.setValue(splitterKey(), splitter.saveState());
}

}  // namespace mergeloom
