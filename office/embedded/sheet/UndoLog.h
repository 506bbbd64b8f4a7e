#pragma once

#include "office/model/Undo.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace mergeloom::embedded {

/// The undo actions of one recorded step. Every change of a workbook records how to undo it; while no step is
/// recorded, that costs nothing.
class UndoLog {
  public:
    /// Discards the former step and starts a new one.
    void start() {
        actions_.clear();
        recording_ = keepsSteps_;
    }
    /// Discards the step, and records none from now on.
    void giveUp() {
        actions_.clear();
        recording_ = keepsSteps_ = false;
    }
    /// Returns true when the step has changes.
    bool stop() {
        recording_ = false;
        return !actions_.isEmpty();
    }

    [[nodiscard]] bool isRecording() const { return recording_; }
    /// Records how to undo a change that was just made.
    void record(std::function<void()> undoAction) {
        if (recording_) actions_.add(std::move(undoAction));
    }

    /// Undoes the recorded step, its last change first. Returns false if it is empty.
    bool undo() {
        recording_ = false;
        if (actions_.isEmpty()) return false;
        actions_.undo();
        return true;
    }

  private:
    model::UndoActions actions_;
    bool keepsSteps_ = true;
    bool recording_ = false;
};

/// Tracks whether a part differs from the one in the package. A part that was edited and undone back to its
/// stored state is unchanged; one that was stored between the edit and the undo is changed.
class PartState {
  public:
    /// The log must outlive the state.
    explicit PartState(UndoLog& undo) : undo_(undo) {}
    PartState(const PartState&) = delete;
    PartState& operator=(const PartState&) = delete;

    /// Marks the part as changed and records how to undo the change.
    void change(std::function<void()> undoAction) {
        undo_.record([this, former = current_, undoAction = std::move(undoAction)] {
            undoAction();
            current_ = former;
        });
        current_ = ++latest_;
    }

    [[nodiscard]] bool isDirty() const { return current_ != stored_; }
    /// Marks the current state as the one in the package.
    void setStored() { stored_ = current_; }

  private:
    UndoLog& undo_;
    std::int64_t current_ = 0;
    std::int64_t latest_ = 0;
    std::int64_t stored_ = 0;
};

}  // namespace mergeloom::embedded
