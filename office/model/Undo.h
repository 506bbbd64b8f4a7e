#pragma once

#include "office/model/Object.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::model {

/// Combines all changes between start and end into one step of the active document's undo list.
class UndoRecord : public Object {
  public:
    virtual void StartCustomRecord(const std::string& name) = 0;
    /// Returns true when anything was changed since the start: only then there is a step to undo.
    virtual bool EndCustomRecord() = 0;
};

using UndoRecordPtr = std::shared_ptr<UndoRecord>;

/// The actions that undo the changes of a step, in the order in which the changes were made.
class UndoActions {
  public:
    void add(std::function<void()> undoChange) { actions_.push_back(std::move(undoChange)); }
    void clear() { actions_.clear(); }
    [[nodiscard]] bool isEmpty() const { return actions_.empty(); }

    /// Undoes the changes, the last one first. A change that could not be undone is not tried again.
    void undo() {
        while (!actions_.empty()) {
            const std::function<void()> undoChange = std::move(actions_.back());
            actions_.pop_back();
            undoChange();
        }
    }

  private:
    std::vector<std::function<void()>> actions_;
};

}  // namespace mergeloom::model
