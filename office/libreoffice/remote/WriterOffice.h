#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/readback/KeptOriginal.h"
#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/word/Forward.h"

#include <memory>

namespace mergeloom::libreoffice {

/// Makes Word's application over a running LibreOffice. The file store must outlive it and its documents.
/// With a grafting office, saves keep the files that were opened.
word::ApplicationPtr makeWordApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                                         GraftingOfficePtr grafting = {});

/// The functions below are for a window that shows Writer documents, and take no others.

/// Returns none if the document is closed.
DocumentReference componentOf(word::Document& document);
/// Bracket the use of the object model; see DocumentEditor.
void beginEditing(word::Document& document);
void endEditing(word::Document& document);

}  // namespace mergeloom::libreoffice
