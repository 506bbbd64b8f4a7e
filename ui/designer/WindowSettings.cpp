#include "ui/designer/WindowSettings.h"

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

WindowSettings::WindowSettings()
    : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("mergeloom"),
                QStringLiteral("designer")) {}

void WindowSettings::restore(QWidget& window, QSplitter& splitter) {
    window.restoreGeometry(settings_.value(geometryKey()).toByteArray());
    splitter.restoreState(settings_.value(splitterKey()).toByteArray());
}

void WindowSettings::keep(const QWidget& window, const QSplitter& splitter) {
    settings_.setValue(geometryKey(), window.saveGeometry());
    settings_.setValue(splitterKey(), splitter.saveState());
}

}  // namespace mergeloom
