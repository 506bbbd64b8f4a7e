#include "app/MappedWord.h"

#include "app/FileFormats.h"
#include "app/MergeloomErrorCodes.h"
#include "app/WordStart.h"
#include "droppers/SelectionCheck.h"
#include "office/formats/mWordFileExtensions.h"
#include "office/model/word/Documents.h"
#include "office/model/word/Selection.h"

namespace mergeloom {

namespace {

/// Returns whether the document that was just opened has a selection, without which nothing can be dropped.
bool hasSelection(word::Application& office) {
    try {
        return office.Selection() != nullptr;
    } catch (const AutomationError&) {
        return false;
    }
}

}  // namespace

bool MappedWord::knowsExtensionOf(const std::string& path) const {
    return hasWordExtension(path);
}

std::string MappedWord::formatNameOf(const std::string& path) const {
    return formatName(DocumentFamily::Word, static_cast<int>(wordFormatOf(path)));
}

std::string MappedWord::refusalToSave(const std::string& path) const {
    return formats_.refusalToWrite(formats_.documentFormatOf(path));
}

std::string MappedWord::refusalToOpen(const std::string& path) const {
    return formats_.refusalToOpenDocument(path);
}

bool MappedWord::isForeign(const std::string& path) const {
    return isForeignWordFile(path);
}

void MappedWord::addDocument(const std::string& templatePath) {
    document_ = (*office_)->Documents()->Add(templatePath);
}

void MappedWord::openDocument(const std::string& path) {
    document_ = (*office_)->Documents()->Open(path);
    if (!hasSelection(**office_)) RaiseMappingError(kLabelDocumentIncorrect);
}

void MappedWord::beginAt(const std::string& place) {
    selectStart(*document_, place);
}

bool MappedWord::takesDrops() {
    return takesCompositeDrop(*(*office_)->Selection());
}

bool MappedWord::drop(CNodeDropper& dropper, const MappedObject& object) {
    return dropper.NodeDrop(object.node, document_, object.xmlNodes, false, object.documentType,
                            object.fields);
}

void MappedWord::saveAs(const std::string& path) {
    document_->SaveAs(path, formats_.documentFormatOf(path));
}

void MappedWord::closeDocument() {
    document_->SetSaved(true);
    document_->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    document_.reset();
}

}  // namespace mergeloom
