#pragma once

#include "office/model/Object.h"

#include <memory>
#include <string>

namespace mergeloom::model {

/// Gathers what is done between start and end into one step that Undo of the active document takes back
/// whole.
class UndoRecord : public Object {
  public:
    virtual void StartCustomRecord(const std::string& name) = 0;
    virtual void EndCustomRecord() = 0;
};

using UndoRecordPtr = std::shared_ptr<UndoRecord>;

}  // namespace mergeloom::model
