#pragma once

#include "office/model/OfficeDocument.h"
#include "office/model/Undo.h"

#include <string>

namespace mergeloom {

/// Makes a drop one step of the document's undo list, which can be undone at once.
class DropRecord {
  public:
    /// Starts to record under the name that the undo list shows. Document and record must outlive this
    /// object.
    DropRecord(model::OfficeDocument& document, model::UndoRecord& record, const std::string& name);

    /// Ends the record; what was dropped stays.
    void keep();
    /// Ends the record and restores the document. A record without changes is no step, so an earlier step is
    /// never undone instead. Raises kCommandFailed when the document cannot undo it.
    void takeBack();

  private:
    model::OfficeDocument& document_;
    model::UndoRecord& record_;
    bool wasSaved_;
};

}  // namespace mergeloom
