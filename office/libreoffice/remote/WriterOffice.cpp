#include "office/libreoffice/remote/WriterOffice.h"

#include "office/libreoffice/remote/WriterApplication.h"
#include "office/libreoffice/remote/WriterDocument.h"

#include <utility>

namespace mergeloom::libreoffice {

namespace {

WriterDocument& writerDocument(word::Document& document) {
    return dynamic_cast<WriterDocument&>(document);
}

}  // namespace

word::ApplicationPtr makeWordApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files) {
    return std::make_shared<WriterApplication>(std::move(session), files);
}

DocumentReference componentOf(word::Document& document) {
    return writerDocument(document).component();
}

void beginEditing(word::Document& document) {
    DocumentLine& line = writerDocument(document).line();
    line.session().connection().expect(RequestPattern::Series);
    line.callEditor<&DocumentEditor::beginEditing>();
}

void endEditing(word::Document& document) {
    DocumentLine& line = writerDocument(document).line();
    line.session().connection().expect(RequestPattern::Single);
    line.callEditor<&DocumentEditor::endEditing>();
}

}  // namespace mergeloom::libreoffice
