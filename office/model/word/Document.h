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

}  // namespace mergeloom::word
