#pragma once

#include "office/model/Object.h"

#include <string>

namespace mergeloom::model {

/// One open document: a Word document or an Excel workbook.
class OfficeDocument : public Object {
  public:
    /// The file's name without its folder, or the name of a document that was never saved.
    virtual std::string Name() = 0;
    virtual std::string FullName() = 0;
    /// Every change of the document clears this mark.
    virtual bool Saved() = 0;
    virtual void SetSaved(bool saved) = 0;

    /// Raises kFileCouldNotBeSaved, with a sentence that says why, and leaves an existing file whole.
    virtual void Save() = 0;

    /// Takes back the last steps; false when there was nothing to take back.
    virtual bool Undo(int times) = 0;
};

}  // namespace mergeloom::model
