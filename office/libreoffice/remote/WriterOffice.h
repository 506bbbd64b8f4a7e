#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/word/Forward.h"

#include <memory>

namespace mergeloom::libreoffice {

/// A running LibreOffice in Word's part. The file store has to outlive it and its documents.
word::ApplicationPtr makeWordApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files);

/// What a window that shows Writer's documents needs of them besides Word's object model. The documents are
/// Writer's.

/// Returns none when the document is closed.
DocumentReference componentOf(word::Document& document);
/// Between the two calls nothing shows. The first one has the object model take the document as its user left
/// it, and select what the view does; the second one lets the view select what the model does.
void beginEditing(word::Document& document);
void endEditing(word::Document& document);

}  // namespace mergeloom::libreoffice
