#pragma once

#include "office/model/OfficeDocument.h"
#include "office/model/UndoRecord.h"

#include <string>

namespace mergeloom {

/// Makes a drop one step of the document's undo list, which can be taken back at once.
class DropRecord {
  public:
    /// Starts to record under the name that the undo list shows. Document and record must outlive it.
    DropRecord(model::OfficeDocument& document, model::UndoRecord& record, const std::string& name);
    DropRecord(const DropRecord&) = delete;
    DropRecord& operator=(const DropRecord&) = delete;

    /// Ends the record; what was dropped stays.
    void keep();
    /// Ends the record and leaves the document as it was before. A record in which nothing was changed is no
    /// step, so an earlier step is never taken back instead. Raises kCommandFailed when the document cannot
    /// take it back.
    void takeBack();

  private:
    /// Ends the record and tells whether anything was changed in it.
    bool end();

    model::OfficeDocument& document_;
    model::UndoRecord& record_;
    bool wasSaved_;
};

}  // namespace mergeloom
