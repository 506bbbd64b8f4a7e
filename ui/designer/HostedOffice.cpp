#include "ui/designer/HostedOffice.h"

#include <string>
#include <variant>

namespace mergeloom {

DocumentHost& HostedOffice::host() {
    if (host_) return *host_;
    throw AutomationError(kNotAvailable, "The office is not running. Start it again.");
}

bool refusesUnderDialog(DocumentHost& host, Messages& messages) {
    if (!host.hasOpenDialog()) return false;
    const bool isWorkbook = std::holds_alternative<excel::WorkbookPtr>(host.ActiveDocument());
    (void)messages.show({"Another " + std::string(isWorkbook ? "Excel" : "Word") +
                             " Application has an open dialog, please close that and then retry",
                         MessageIcon::Exclamation, MessageButtons::Ok});
    return true;
}

bool refusesChanges(DocumentHost& host, Messages& messages) {
    if (!host.isReadOnly()) return false;
    (void)messages.show(
        {"The template is open for reading only. Save it under another name before you change it.",
         MessageIcon::Exclamation, MessageButtons::Ok});
    return true;
}

void HostEvents::fileCommand(HostCommand command) {
    QMetaObject::invokeMethod(
        this, [this, command] { Q_EMIT commandGiven(command); }, Qt::QueuedConnection);
}

void HostEvents::keyPressed(HostKey key) {
    QMetaObject::invokeMethod(
        this, [this, key] { Q_EMIT keyGiven(key); }, Qt::QueuedConnection);
}

void HostEvents::changesBeganOrEnded() {
    QMetaObject::invokeMethod(
        this, [this] { Q_EMIT changesBegunOrEnded(); }, Qt::QueuedConnection);
}

void HostEvents::marksMayHaveMoved() {
    QMetaObject::invokeMethod(
        this, [this] { Q_EMIT marksMoved(); }, Qt::QueuedConnection);
}

void HostEvents::officeEnded() {
    QMetaObject::invokeMethod(
        this, [this] { Q_EMIT ended(); }, Qt::QueuedConnection);
}

}  // namespace mergeloom
