#include "ui/designer/HostedOffice.h"

namespace mergeloom {

DocumentHost& HostedOffice::host() {
    if (host_) return *host_;
    throw AutomationError(kNotAvailable, "The office is not running. Start it again.");
}

void HostEvents::fileCommand(HostCommand command) {
    QMetaObject::invokeMethod(
        this, [this, command] { Q_EMIT commandGiven(command); }, Qt::QueuedConnection);
}

void HostEvents::officeEnded() {
    QMetaObject::invokeMethod(
        this, [this] { Q_EMIT ended(); }, Qt::QueuedConnection);
}

}  // namespace mergeloom
