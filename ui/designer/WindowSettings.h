#pragma once

#include <QSettings>
#include <chrono>

class QSplitter;
class QWidget;

namespace mergeloom {

/// Keeps the position of the window and its splitter from run to run in the user's settings.
class WindowSettings {
  public:
    WindowSettings();

    [[nodiscard]] QSettings& store() { return settings_; }

    /// Restores the kept positions; others stay as they are. A window that is too large for the screen is
    /// made smaller.
    void restore(QWidget& window, QSplitter& splitter);
    /// Returns the time between two copies of an unsaved document.
    [[nodiscard]] std::chrono::milliseconds keepInterval() const;
    void keep(const QWidget& window, const QSplitter& splitter);

  private:
    QSettings settings_;
};

}  // namespace mergeloom
