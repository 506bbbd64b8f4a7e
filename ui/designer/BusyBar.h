#pragma once

#include "ui/designer/DropFlow.h"
#include "ui/designer/OfficeWorker.h"

#include <QProgressBar>

namespace mergeloom {

/// The bar in the status line that runs while the office works. It is hidden while a question waits for the
/// user.
class BusyBar final : public QProgressBar {
    Q_OBJECT

  public:
    explicit BusyBar(QWidget* window);

    void follow(const OfficeWorker& worker, const DropProgress& progress);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void setBusy(bool isBusy);
    void updateVisibility();

    bool isBusy_ = false;
};

}  // namespace mergeloom
