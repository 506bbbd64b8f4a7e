#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/model/word/Forward.h"

/// What a window that shows Writer's documents needs of them besides Word's object model. The documents are
/// Writer's.
namespace mergeloom::libreoffice {

/// None when the document is closed.
DocumentReference componentOf(word::Document& document);
/// The object model is to know the document as the user has left it, and selects what the view does. Nothing
/// shows until the second is called, which lets the view select what the model does.
void beginEditing(word::Document& document);
void endEditing(word::Document& document);

}  // namespace mergeloom::libreoffice
