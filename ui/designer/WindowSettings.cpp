#include "ui/designer/WindowSettings.h"

#include <QScreen>
#include <QSplitter>
#include <QWidget>
#include <algorithm>

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

constexpr int kSecondsBetweenCopies = 60;

/// The part of the screen for a window with its frame.
constexpr double kShareOfScreen = 0.95;

/// Fits a window that was larger on another screen to its screen of today.
void fitToScreen(QWidget& window) {
    const QRect screen = window.screen()->availableGeometry();
    const QSize room = (screen.size() * kShareOfScreen).expandedTo(window.minimumSizeHint());
    if (window.isMaximized() || window.size() == window.size().boundedTo(room)) return;
    window.resize(window.size().boundedTo(room));
    window.move(screen.center() - window.rect().center());
}

}  // namespace

WindowSettings::WindowSettings()
    : settings_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("mergeloom"),
                QStringLiteral("designer")) {}

void WindowSettings::restore(QWidget& window, QSplitter& splitter) {
    window.restoreGeometry(settings_.value(geometryKey()).toByteArray());
    fitToScreen(window);
    splitter.restoreState(settings_.value(splitterKey()).toByteArray());
}

std::chrono::milliseconds WindowSettings::keepInterval() const {
    const int seconds = settings_.value(QStringLiteral("kept/seconds"), kSecondsBetweenCopies).toInt();
    return std::chrono::seconds(std::max(seconds, 1));
}

void WindowSettings::keep(const QWidget& window, const QSplitter& splitter) {
    settings_.setValue(geometryKey(), window.saveGeometry());
    settings_.setValue(splitterKey(), splitter.saveState());
}

}  // namespace mergeloom
