#include "office/libreoffice/remote/WriterApplication.h"

#include "base/AutomationError.h"
#include "office/libreoffice/remote/WriterOffice.h"
#include "office/libreoffice/session/OfficeFilters.h"
#include "office/model/OpenDocuments.h"
#include "office/opc/DocumentProtection.h"

#include <exception>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// Reads the protection from the file, since Writer cannot say it for all kinds. A file that is no package of
/// Word's is protected in ways of its own.
opc::DocumentProtection protectionOf(LibreOfficeFiles& files, const DocumentReference& document,
                                     const std::string& path) {
    try {
        opc::Package package = opc::Package::read(files.plainBytes(document, path), path);
        return opc::readDocumentProtection(package);
    } catch (const AutomationError& error) {
        if (error.number() != kFileCouldNotBeRead) throw;
        return opc::DocumentProtection::None;
    }
}

}  // namespace

WriterApplication::~WriterApplication() {
    for (const std::shared_ptr<WriterDocument>& document : documents_) {
        try {
            document->drop();
        } catch (const std::exception&) {
            // The office ended before; so did the document.
        }
    }
}

word::DocumentsPtr WriterApplication::Documents() {
    return std::make_shared<model::OpenDocuments<word::Documents, word::Document, WriterApplication>>(
        shared_from_this());
}

word::SelectionPtr WriterApplication::Selection() {
    return activeDocument().selection();
}

word::UndoRecordPtr WriterApplication::UndoRecord() {
    return activeDocument().undoRecord();
}

bool WriterApplication::canSaveAs(word::WdSaveFormat format) {
    return filterFor(format).has_value();
}

void WriterApplication::Quit(word::WdSaveOptions saveChanges) {
    while (!documents_.empty()) {
        const std::shared_ptr<WriterDocument> last = documents_.back();
        last->Close(saveChanges);
    }
}

word::DocumentPtr WriterApplication::open(const std::string& fileName) {
    return list(session_->files().open(fileName, DocumentKind::Word), fileName, fileName, true);
}

word::DocumentPtr WriterApplication::add(const std::string& templatePath) {
    const bool isEmpty = templatePath.empty();
    const DocumentReference document = isEmpty ? session_->files().create(DocumentKind::Word)
                                               : session_->files().open(templatePath, DocumentKind::Word);
    return list(document, templatePath, "Document" + std::to_string(++added_), false);
}

void WriterApplication::remove(const WriterDocument& document) {
    std::erase_if(documents_, [&](const auto& candidate) { return candidate.get() == &document; });
}

word::DocumentPtr WriterApplication::list(const DocumentReference& document, const std::string& sourceFile,
                                          const std::string& fullName, bool wasOpened) {
    auto line = std::make_shared<DocumentLine>(session_, files_, document);
    if (!sourceFile.empty()) {
        const opc::DocumentProtection protection = protectionOf(session_->files(), document, sourceFile);
        line->callEditor<&DocumentEditor::setProtection>(sourceFile, protection);
    }
    documents_.push_back(
        std::make_shared<WriterDocument>(weak_from_this(), std::move(line), document, fullName, wasOpened));
    if (wasOpened) documents_.back()->keepOriginal(grafting_, sourceFile);
    return documents_.back();
}

WriterDocument& WriterApplication::activeDocument() const {
    if (documents_.empty()) throw AutomationError(kNotAvailable, "No document is open.");
    return *documents_.back();
}

word::ApplicationPtr makeWordApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                                         GraftingOfficePtr grafting) {
    return std::make_shared<WriterApplication>(std::move(session), files, std::move(grafting));
}

}  // namespace mergeloom::libreoffice
