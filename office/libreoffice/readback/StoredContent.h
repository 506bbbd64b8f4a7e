#pragma once

#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/DocumentHost.h"
#include "office/opc/XmlPart.h"

#include <memory>

namespace mergeloom::libreoffice {

/// A document as LibreOffice stores it (OpenDocument 1.3, part 3). Reading it is cheaper than asking the
/// office for each paragraph, table and bookmark, which takes a dozen calls each.
struct StoredContent {
    std::unique_ptr<opc::XmlPart> content;
    std::unique_ptr<opc::XmlPart> styles;  ///< with headers and footers
};

/// Returns the content of an open document; does not change the document or its modified flag.
StoredContent storedContentOf(LibreOfficeSession& session, const DocumentReference& document,
                              DocumentKind kind = DocumentKind::Word);

}  // namespace mergeloom::libreoffice
