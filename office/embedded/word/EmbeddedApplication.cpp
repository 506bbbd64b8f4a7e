#include "office/embedded/word/EmbeddedApplication.h"

#include "base/AutomationError.h"
#include "office/embedded/parts/DocumentFile.h"
#include "office/embedded/parts/NewDocument.h"
#include "office/embedded/word/EmbeddedSelection.h"
#include "office/embedded/word/EmbeddedUndoRecord.h"
#include "office/model/OpenDocuments.h"

#include <algorithm>
#include <utility>

namespace mergeloom::embedded {

word::DocumentsPtr EmbeddedApplication::Documents() {
    return std::make_shared<model::OpenDocuments<word::Documents, word::Document, EmbeddedApplication>>(
        shared_from_this());
}

word::SelectionPtr EmbeddedApplication::Selection() {
    return std::make_shared<EmbeddedSelection>(activeContent());
}

word::UndoRecordPtr EmbeddedApplication::UndoRecord() {
    return std::make_shared<EmbeddedUndoRecord>(activeContent());
}

bool EmbeddedApplication::canSaveAs(word::WdSaveFormat format) {
    return canWrite(DocumentFamily::Word, static_cast<int>(format));
}

void EmbeddedApplication::Quit(word::WdSaveOptions saveChanges) {
    while (!documents_.empty()) {
        const std::shared_ptr<EmbeddedDocument> last = documents_.back();
        last->Close(saveChanges);
    }
}

word::DocumentPtr EmbeddedApplication::open(const std::string& fileName) {
    opc::Package package = opc::Package::read(files_.read(fileName), fileName);
    return list(std::make_shared<WordContent>(std::move(package), files_), fileName, true);
}

word::DocumentPtr EmbeddedApplication::add(const std::string& templatePath) {
    opc::Package package = templatePath.empty() ? initialPackage(newDocumentParts())
                                                : opc::Package::read(files_.read(templatePath), templatePath);
    auto content = std::make_shared<WordContent>(std::move(package), files_);
    return list(std::move(content), "Document" + std::to_string(++added_), false);
}

void EmbeddedApplication::remove(const EmbeddedDocument& document) {
    std::erase_if(documents_, [&](const auto& candidate) { return candidate.get() == &document; });
}

word::DocumentPtr EmbeddedApplication::list(std::shared_ptr<WordContent> content, const std::string& fullName,
                                            bool wasOpened) {
    documents_.push_back(std::make_shared<EmbeddedDocument>(weak_from_this(), std::move(content),
                                                            DocumentFile(files_, fullName, wasOpened)));
    return documents_.back();
}

const std::shared_ptr<WordContent>& EmbeddedApplication::activeContent() const {
    if (documents_.empty()) throw AutomationError(kNotAvailable, "No document is open.");
    return documents_.back()->content();
}

}  // namespace mergeloom::embedded
