#pragma once

#include "office/model/DocumentHost.h"

#include <QObject>

namespace mergeloom {

/// Passes the events of the office from its threads to that of the windows. The office never waits for that,
/// so the signals come later.
class HostEvents final : public QObject, public HostListener {
    Q_OBJECT

  public:
    void fileCommand(HostCommand command) override;
    void officeEnded() override;

  Q_SIGNALS:
    void commandGiven(mergeloom::HostCommand command);
    void ended();
};

}  // namespace mergeloom
