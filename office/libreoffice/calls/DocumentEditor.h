#pragma once

#include "office/model/word/Forward.h"
#include "office/opc/DocumentProtection.h"

#include <memory>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// A Writer document inside LibreOffice's process. Its files are handled outside.
class DocumentEditor : public model::Object {
  public:
    virtual word::SelectionPtr Selection() = 0;
    virtual word::UndoRecordPtr UndoRecord() = 0;
    virtual word::BookmarksPtr Bookmarks() = 0;
    virtual word::FieldsPtr Fields() = 0;
    virtual word::MailMergePtr MailMerge() = 0;
    virtual word::TablesPtr Tables() = 0;
    virtual bool Saved() = 0;
    virtual void SetSaved(bool saved) = 0;
    virtual bool Undo(int times) = 0;

    /// Sets the protection of the file that the document was read from. Writer enforces it for its user, but
    /// not for a program.
    virtual void setProtection(const std::string& fileName, opc::DocumentProtection protection) = 0;
    /// Stores the content of a file for the next call, since file stores are outside.
    virtual void takeFile(const std::string& fileName, const std::string& content) = 0;
    /// Returns the names of the bookmarks that cover whole tables.
    virtual std::vector<std::string> namesOverTables() = 0;

    /// Brackets the calls of a program in a document that its user edits too. Between the two the selection
    /// is the view's, the view is locked and the window takes neither keys nor clicks.
    virtual void beginEditing() = 0;
    virtual void endEditing() = 0;
    /// Makes every member raise kObjectDeleted from now on.
    virtual void close() = 0;
};

using DocumentEditorPtr = std::shared_ptr<DocumentEditor>;

}  // namespace mergeloom::libreoffice
