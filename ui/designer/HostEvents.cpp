#include "ui/designer/HostEvents.h"

namespace mergeloom {

void HostEvents::fileCommand(HostCommand command) {
    QMetaObject::invokeMethod(
        this, [this, command] { Q_EMIT commandGiven(command); }, Qt::QueuedConnection);
}

void HostEvents::officeEnded() {
    QMetaObject::invokeMethod(
        this, [this] { Q_EMIT ended(); }, Qt::QueuedConnection);
}

}  // namespace mergeloom
