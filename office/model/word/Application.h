#pragma once

#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

class Application : public Object {
  public:
    /// "Microsoft Word" for every office that plays Word's part.
    virtual std::string Name() = 0;
    /// The version of Word whose formats and calls this office answers for, such as "16.0".
    virtual std::string Version() = 0;

    virtual DocumentsPtr Documents() = 0;
    /// The selection of the active document; raises an error when no document is open.
    virtual SelectionPtr Selection() = 0;
    virtual UndoRecordPtr UndoRecord() = 0;
    /// Whether this office itself can write the format.
    virtual bool canSaveAs(WdSaveFormat format) = 0;

    virtual void Quit(WdSaveOptions saveChanges) = 0;
};

}  // namespace mergeloom::word
