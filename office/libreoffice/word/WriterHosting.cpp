#include "office/libreoffice/word/WriterHosting.h"

#include "office/libreoffice/word/WriterDocument.h"

namespace mergeloom::libreoffice {

namespace {

WriterContent& contentOf(word::Document& document) {
    return *dynamic_cast<WriterDocument&>(document).content();
}

}  // namespace

DocumentReference componentOf(word::Document& document) {
    const WriterContent& content = contentOf(document);
    return content.isOpen() ? content.model().document : DocumentReference();
}

}  // namespace mergeloom::libreoffice
