#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/model/word/Forward.h"

/// What a window that shows Writer's documents needs of them besides Word's object model. The documents are
/// Writer's.
namespace mergeloom::libreoffice {

/// None when the document is closed.
DocumentReference componentOf(word::Document& document);

}  // namespace mergeloom::libreoffice
