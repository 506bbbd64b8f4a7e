#include "droppers/DropRecord.h"

#include "base/AutomationError.h"

namespace mergeloom {

DropRecord::DropRecord(model::OfficeDocument& document, model::UndoRecord& record, const std::string& name)
    : document_(document), record_(record), wasSaved_(document.Saved()) {
    record_.StartCustomRecord(name);
    // Every change of the document clears this mark, so that end() can see whether the record holds anything.
    document_.SetSaved(true);
}

void DropRecord::keep() {
    if (!end()) document_.SetSaved(wasSaved_);
}

void DropRecord::takeBack() {
    if (end() && !document_.Undo(1)) {
        throw AutomationError(kCommandFailed, "What was dropped could not be taken back.");
    }
    document_.SetSaved(wasSaved_);
}

bool DropRecord::end() {
    record_.EndCustomRecord();
    return !document_.Saved();
}

}  // namespace mergeloom
