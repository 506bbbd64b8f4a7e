#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace mergeloom::model {

/// The actions that undo the changes of a step, in the order in which the changes were made.
class UndoActions {
  public:
    void add(std::function<void()> takeBack) { actions_.push_back(std::move(takeBack)); }
    void clear() { actions_.clear(); }
    [[nodiscard]] bool isEmpty() const { return actions_.empty(); }

    /// Undoes the changes, the last one first. A change that could not be undone is not tried again.
    void undo() {
        while (!actions_.empty()) {
            const std::function<void()> takeBack = std::move(actions_.back());
            actions_.pop_back();
            takeBack();
        }
    }

  private:
    std::vector<std::function<void()>> actions_;
};

}  // namespace mergeloom::model
