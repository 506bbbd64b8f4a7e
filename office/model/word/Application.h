#pragma once

#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

class Application : public Object {
  public:
    /// Returns "Microsoft Word" for every office that implements Word's object model.
    virtual std::string Name() = 0;
    /// Returns the version of Word whose formats and calls this office supports, such as "16.0".
    virtual std::string Version() = 0;

    virtual DocumentsPtr Documents() = 0;
    /// Returns the selection of the active document. Raises an error when no document is open.
    virtual SelectionPtr Selection() = 0;
    virtual UndoRecordPtr UndoRecord() = 0;
    /// Returns true when this office itself can write the format.
    virtual bool canSaveAs(WdSaveFormat format) = 0;

    virtual void Quit(WdSaveOptions saveChanges) = 0;
};

}  // namespace mergeloom::word
