#pragma once

#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

/// One open document.
class Document : public Object {
  public:
    virtual ApplicationPtr Application() = 0;
    virtual WindowPtr ActiveWindow() = 0;
    virtual BookmarksPtr Bookmarks() = 0;
    /// The fields of all stories.
    virtual FieldsPtr Fields() = 0;
    virtual MailMergePtr MailMerge() = 0;
    virtual TablesPtr Tables() = 0;

    /// The file's name without its folder, or the name of a document that was never saved.
    virtual std::string Name() = 0;
    virtual std::string FullName() = 0;
    virtual bool Saved() = 0;
    virtual void SetSaved(bool saved) = 0;

    /// Raises kFileCouldNotBeSaved, with a sentence that says why, and leaves an existing file whole.
    virtual void Save() = 0;
    virtual void SaveAs(const std::string& fileName, WdSaveFormat format) = 0;
    virtual void Close(WdSaveOptions saveChanges) = 0;

    /// Takes back the last steps; false when there was nothing to take back.
    virtual bool Undo(int times) = 0;
};

}  // namespace mergeloom::word
