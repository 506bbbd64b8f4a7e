#include "droppers/DropRecord.h"

#include "base/AutomationError.h"

namespace mergeloom {

DropRecord::DropRecord(model::OfficeDocument& document, model::UndoRecord& record, const std::string& name)
    : document_(document), record_(record), wasSaved_(document.Saved()) {
    record_.StartCustomRecord(name);
}

void DropRecord::keep() {
    record_.EndCustomRecord();
}

void DropRecord::takeBack() {
    if (!record_.EndCustomRecord()) return;
    if (!document_.Undo(1)) {
        throw AutomationError(kCommandFailed, "What was dropped could not be taken back.");
    }
    // An office regards this state as the saved one from now on, which is only true if it was that before.
    if (wasSaved_) document_.SetSaved(true);
}

}  // namespace mergeloom
