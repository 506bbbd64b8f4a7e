#pragma once

#include <QSettings>

class QSplitter;
class QWidget;

namespace mergeloom {

/// Where the user left the window and its splitter, kept from run to run in the user's settings.
class WindowMemory {
  public:
    WindowMemory();

    /// What was never kept stays as it is.
    void restore(QWidget& window, QSplitter& splitter);
    void keep(const QWidget& window, const QSplitter& splitter);

  private:
    QSettings settings_;
};

}  // namespace mergeloom
