#pragma once

#include "office/model/OfficeDocument.h"
#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

/// One open document.
class Document : public model::OfficeDocument {
  public:
    virtual ApplicationPtr Application() = 0;
    virtual WindowPtr ActiveWindow() = 0;
    virtual BookmarksPtr Bookmarks() = 0;
    /// The fields of all stories.
    virtual FieldsPtr Fields() = 0;
    virtual MailMergePtr MailMerge() = 0;
    virtual TablesPtr Tables() = 0;

    /// Errors as for Save.
    virtual void SaveAs(const std::string& fileName, WdSaveFormat format) = 0;
    virtual void Close(WdSaveOptions saveChanges) = 0;
};

class Documents : public Counted {
  public:
    /// Makes a document from a template, or an empty one when the path is empty, and makes it active with
    /// the caret at its start. Raises kFileCouldNotBeRead with a sentence that names the file and what is
    /// wrong with it.
    virtual DocumentPtr Add(const std::string& templatePath) = 0;
    /// Opens a document to change it in place; errors as for Add.
    virtual DocumentPtr Open(const std::string& fileName) = 0;
    virtual DocumentPtr Item(int number) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kMemberNotFound, "There is no such document.");
    }
};

}  // namespace mergeloom::word
