#pragma once

#include "office/model/DocumentHost.h"

#include <QObject>

namespace mergeloom {

/// What the office tells of itself, brought from its threads to that of the windows. The office never waits
/// for that, so the signals come later.
class HostEvents final : public QObject, public HostListener {
    Q_OBJECT

  public:
    void fileCommand(HostCommand command) override {
        QMetaObject::invokeMethod(
            this, [this, command] { Q_EMIT commandGiven(command); }, Qt::QueuedConnection);
    }
    void officeEnded() override {
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT ended(); }, Qt::QueuedConnection);
    }

  Q_SIGNALS:
    void commandGiven(mergeloom::HostCommand command);
    void ended();
};

}  // namespace mergeloom
