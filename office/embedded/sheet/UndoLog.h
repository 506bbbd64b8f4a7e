#pragma once

#include "office/model/UndoActions.h"

#include <functional>
#include <utility>

namespace mergeloom::embedded {

/// How the changes of one recorded step are taken back. Whoever changes a workbook says how to undo it; while
/// nothing is recorded, that costs nothing.
class UndoLog {
  public:
    /// Forgets the former step and starts a new one.
    void start() {
        actions_.clear();
        recording_ = true;
    }
    void stop() { recording_ = false; }

    [[nodiscard]] bool isRecording() const { return recording_; }
    /// Remembers how a change that was just made is taken back.
    void record(std::function<void()> takeBack) {
        if (recording_) actions_.add(std::move(takeBack));
    }

    /// Takes the recorded step back, its last change first; false when it holds none.
    bool undo() {
        recording_ = false;
        if (actions_.isEmpty()) return false;
        actions_.undo();
        return true;
    }

  private:
    model::UndoActions actions_;
    bool recording_ = false;
};

}  // namespace mergeloom::embedded
