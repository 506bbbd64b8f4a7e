#include "app/MappedWord.h"

#include "app/FileFormats.h"
#include "app/GnuOptions.h"
#include "app/MergeloomErrorCodes.h"
#include "droppers/SelectionCheck.h"
#include "office/formats/mWordFileExtensions.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"

#include <string>

namespace mergeloom {

namespace {

bool beginsLine(word::Selection& selection) {
    const word::RangePtr before = selection.Range()->Previous(word::WdUnits::wdCharacter, 1);
    return !before || before->Text().starts_with('\r');
}

/// Begins a line at the caret. A place that the caret touches stays out of what is dropped when a paragraph
/// ends between them.
void beginNewLine(word::Selection& selection) {
    if (beginsLine(selection) && takesCompositeDrop(selection)) return;
    selection.TypeParagraph();
}

void selectEndOf(word::Document& document, word::Selection& selection, const std::string& name) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    if (!bookmarks->Exists(name)) {
        throw MappingRefusal("The mapping cannot begin at '" + name + "': the document '" +
                             document.FullName() + "' has no bookmark of that name.");
    }
    bookmarks->Item(name)->Range()->Select();
    selection.Collapse(word::WdCollapseDirection::wdCollapseEnd);
    if (selection.Tables()->Count() == 0) return;
    throw MappingRefusal("The mapping cannot begin at '" + name +
                         "': that bookmark ends in a table. Choose one outside of tables.");
}

/// Moves the caret to the start of a mapping, on a line of its own: at the end of the document (kAtEnd) or
/// after the bookmark of that name. Raises MappingRefusal when there is no such bookmark or when it is in a
/// table, where nothing can begin.
void selectStart(word::Document& document, const std::string& place) {
    const word::SelectionPtr selection = document.Application()->Selection();
    if (place == kAtEnd) {
        selection->EndKey(word::WdUnits::wdStory);
    } else {
        selectEndOf(document, *selection, place);
    }
    beginNewLine(*selection);
}

/// Returns true when the document that was just opened has a selection, without which nothing can be dropped.
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
    document_->giveUpUndo();
}

void MappedWord::openDocument(const std::string& path) {
    document_ = (*office_)->Documents()->Open(path);
    document_->giveUpUndo();
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
