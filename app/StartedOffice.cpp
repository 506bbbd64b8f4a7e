#include "app/StartedOffice.h"

#include "base/AutomationError.h"
#include "office/model/word/Document.h"
#include "office/model/word/Documents.h"

namespace mergeloom {

StartedOffice::~StartedOffice() {
    try {
        close();
    } catch (const AutomationError& error) {
        errors_.report({error.number(), error.description(), {}, "CAutoMapping", "Execute"});
    }
}

void StartedOffice::close() {
    const word::DocumentsPtr documents = application_->Documents();
    for (int count = documents->Count(); count > 0; --count) {
        const word::DocumentPtr document = documents->Item(count);
        document->SetSaved(true);
        document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    }
    application_->Quit(word::WdSaveOptions::wdDoNotSaveChanges);
}

}  // namespace mergeloom
