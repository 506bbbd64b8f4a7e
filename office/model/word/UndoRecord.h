#pragma once

#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

/// Gathers what is done between start and end into one step that Document.Undo takes back whole.
class UndoRecord : public Object {
  public:
    virtual void StartCustomRecord(const std::string& name) = 0;
    virtual void EndCustomRecord() = 0;
};

}  // namespace mergeloom::word
