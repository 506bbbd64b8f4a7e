#include "droppers/DropRecord.h"

#include "base/AutomationError.h"
#include "office/model/UndoRecord.h"
#include "office/model/word/Application.h"

namespace mergeloom {

DropRecord::DropRecord(word::Document& document, const std::string& name)
    : document_(document), wasSaved_(document.Saved()) {
    document_.Application()->UndoRecord()->StartCustomRecord(name);
    // Every change of a document clears this mark, which tells whether the record holds anything.
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
    document_.Application()->UndoRecord()->EndCustomRecord();
    return !document_.Saved();
}

}  // namespace mergeloom
