#include "automation/WordDouble.h"

#include "automation/Faults.h"
#include "automation/Members.h"
#include "automation/WordObjects.h"
#include "base/Paths.h"
#include "office/model/Undo.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

#include <utility>

namespace mergeloom::automation {

namespace {

/// Word's error for a command that needs a document.
constexpr ErrorNumber kNoDocument = 4248;

Value saveAs(word::Document& document, const Given& given) {
    document.SaveAs(given[0].text(), word::WdSaveFormat{given[1].integer()});
    return {};
}

word::WdSaveOptions saveChoice(const Value& given) {
    return given.isEmpty() ? word::WdSaveOptions::wdSaveChanges : word::WdSaveOptions{given.integer()};
}

DispatchPtr wordDocument(const word::DocumentPtr& document) {
    // A document without a file has an empty path in Word.
    const auto path = [document] {
        const std::string full = document->FullName();
        return full == document->Name() ? std::string() : parentFolder(full) + "/";
    };
    return makeObject(
        {
            property("ActiveWindow",
                     [document] {
                         return makeObject({property("Selection", [document] {
                             return wordSelection(document->ActiveWindow()->Selection(), document);
                         })});
                     }),
            property("Bookmarks", [document] { return wordBookmarks(document->Bookmarks(), document); }),
            method("Close", "SaveChanges?, OriginalFormat?, RouteDocument?",
                   [document](const Given& given) -> Value {
                       document->Close(saveChoice(given[0]));
                       return {};
                   }),
            property("FullName", [document] { return document->FullName(); }),
            property("Name", [document] { return document->Name(); }),
            property("Path", path),
            property("ReadOnly", [] { return faults().isReadOnly(); }),
            method("Save", "",
                   [document](const Given&) -> Value {
                       document->Save();
                       return {};
                   }),
            method("SaveAs",
                   "FileName?, FileFormat?, LockComments?, Password?, AddToRecentFiles?, WritePassword?, "
                   "ReadOnlyRecommended?, EmbedTrueTypeFonts?, SaveNativePictureFormat?, SaveFormsData?, "
                   "SaveAsAOCELetter?, Encoding?, InsertLineBreaks?, AllowSubstitutions?, LineEnding?, "
                   "AddBiDiMarks?",
                   [document](const Given& given) { return saveAs(*document, given); }),
            property(
                "Saved", [document] { return document->Saved(); },
                [document](const Value& saved) { document->SetSaved(saved.truth()); }),
            property("StoryRanges", [document] { return wordStoryRanges(document); }),
            property("Tables", [document] { return wordTables(document->Tables(), document); }),
            method("Undo", "Times?",
                   [document](const Given& given) {
                       return document->Undo(given[0].isEmpty() ? 1 : given[0].integer());
                   }),
        },
        document);
}

DispatchPtr wordDocuments(const word::ApplicationPtr& office) {
    const word::DocumentsPtr documents = office->Documents();
    return makeObject({
        property("Count", [documents] { return documents->Count(); }),
        method("Item", "Index",
               [documents](const Given& given) { return wordDocument(documents->Item(given[0].integer())); }),
        method("Add", "Template?, NewTemplate?, DocumentType?, Visible?",
               [documents](const Given& given) { return wordDocument(documents->Add(given[0].text())); }),
        method("Open",
               "FileName, ConfirmConversions?, ReadOnly?, AddToRecentFiles?, PasswordDocument?, "
               "PasswordTemplate?, Revert?, WritePasswordDocument?, WritePasswordTemplate?, Format?, "
               "Encoding?, Visible?, OpenAndRepair?, DocumentDirection?, NoEncodingDialog?, XMLTransform?",
               [documents](const Given& given) { return wordDocument(documents->Open(given[0].text())); }),
    });
}

/// Returns the document that was opened last as the active one.
word::DocumentPtr activeDocument(word::Application& office) {
    const word::DocumentsPtr documents = office.Documents();
    if (documents->Count() > 0) return documents->Item(documents->Count());
    throw AutomationError(kNoDocument, "This command is not available because no document is open.");
}

DispatchPtr wordUndoRecord(const word::ApplicationPtr& office) {
    return makeObject({
        method("StartCustomRecord", "Name?",
               [office](const Given& given) -> Value {
                   office->UndoRecord()->StartCustomRecord(given[0].text());
                   return {};
               }),
        method("EndCustomRecord", "",
               [office](const Given&) -> Value {
                   office->UndoRecord()->EndCustomRecord();
                   return {};
               }),
    });
}

}  // namespace

DispatchPtr makeWordDouble(const word::ApplicationPtr& office, Members furtherMembers,
                           std::function<void()> quit) {
    Members members{
        option("AutomationSecurity", 1),
        option("DisplayAlerts", -1),
        property("Documents", [office] { return wordDocuments(office); }),
        property("Name", [office] { return office->Name(); }),
        method("Quit", "SaveChanges?, OriginalFormat?, RouteDocument?",
               [office, quit = std::move(quit)](const Given& given) -> Value {
                   office->Quit(saveChoice(given[0]));
                   quit();
                   return {};
               }),
        property("Selection",
                 [office] {
                     const word::DocumentPtr active = activeDocument(*office);
                     return wordSelection(office->Selection(), active);
                 }),
        property("UndoRecord", [office] { return wordUndoRecord(office); }),
        property("Version", [office] { return office->Version(); }),
        option("Visible", false),
    };
    members.insert(members.end(), furtherMembers.begin(), furtherMembers.end());
    return makeObject(std::move(members));
}

}  // namespace mergeloom::automation
