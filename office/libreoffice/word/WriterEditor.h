#pragma once

#include "office/libreoffice/calls/DocumentEditor.h"
#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/uno/XComponentContext.hpp>

namespace mergeloom::libreoffice {

/// Returns the editor of a document that is open in this process.
DocumentEditorPtr makeEditor(const Reference<css::uno::XComponentContext>& office,
                             const DocumentReference& document);

}  // namespace mergeloom::libreoffice
