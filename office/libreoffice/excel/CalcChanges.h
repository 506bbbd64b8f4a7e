#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// The changes of a step, in the order in which they were made.
class CalcChanges {
  public:
    /// Adds a change of this process's copy of the document's state. It is undone once and not redone:
    /// another object has read the document by then.
    void add(std::function<void()> undoChange) { done_.push_back({std::move(undoChange), Kind::Memory}); }
    /// Adds a change of the document itself. The function exchanges the document's content with the content
    /// that it keeps, so that it undoes the change and redoes it.
    void addExchange(std::function<void()> exchange) {
        done_.push_back({std::move(exchange), Kind::Document});
    }

    void clear();
    [[nodiscard]] bool isEmpty() const { return done_.empty(); }
    /// Undoes the changes in reverse order. A change that could not be undone is not tried again.
    void undo();
    /// Redoes the undone changes of the document, in their order.
    void redo();

  private:
    enum class Kind { Memory, Document };
    struct Change {
        std::function<void()> run;
        Kind kind;
    };

    std::vector<Change> done_;
    std::vector<Change> undone_;  ///< the first change is the last entry
};

/// A step of the office's own undo list.
class CalcUndoStep {
  public:
    using Actions = std::vector<std::function<void()>>;

    CalcUndoStep(CalcChanges changes, Actions cleanups)
        : changes_(std::move(changes)), cleanups_(std::move(cleanups)) {}

    /// Undoes the step. Returns false if it is undone or that is no longer possible.
    bool undo();
    /// Redoes the step after undo(). Returns false if it is not undone or that is no longer possible.
    bool redo();
    /// Removes the shapes that the step hid; it cannot be undone afterwards. Returns false if it hides none.
    bool cleanUp();
    /// Discards all changes; the step can be neither undone nor redone afterwards.
    void drop();

  private:
    enum class State { Done, Undone, Dropped };
    /// Runs the change if the state is the first one, and sets the second one. Returns false in another
    /// state.
    bool change(State from, State to, void (CalcChanges::*run)());
    void discard();

    std::mutex mutex_;  ///< users undo steps on threads of the bridge
    CalcChanges changes_;
    Actions cleanups_;
    State state_ = State::Done;
};

}  // namespace mergeloom::libreoffice
