#include "office/libreoffice/excel/CalcChanges.h"

namespace mergeloom::libreoffice {

void CalcChanges::clear() {
    done_.clear();
    undone_.clear();
}

void CalcChanges::undo() {
    while (!done_.empty()) {
        Change change = std::move(done_.back());
        done_.pop_back();
        change.run();
        if (change.kind == Kind::Document) undone_.push_back(std::move(change));
    }
}

void CalcChanges::redo() {
    while (!undone_.empty()) {
        Change change = std::move(undone_.back());
        undone_.pop_back();
        change.run();
        done_.push_back(std::move(change));
    }
}

bool CalcUndoStep::undo() {
    return change(State::Done, State::Undone, &CalcChanges::undo);
}

bool CalcUndoStep::redo() {
    return change(State::Undone, State::Done, &CalcChanges::redo);
}

bool CalcUndoStep::change(State from, State to, void (CalcChanges::*run)()) {
    const std::lock_guard lock(mutex_);
    if (state_ != from) return false;
    (changes_.*run)();
    state_ = to;
    return true;
}

/// A step that is undone hides nothing.
bool CalcUndoStep::cleanUp() {
    const std::lock_guard lock(mutex_);
    if (state_ != State::Done || cleanups_.empty()) return false;
    for (const auto& cleanup : cleanups_)
        cleanup();
    discard();
    return true;
}

void CalcUndoStep::drop() {
    const std::lock_guard lock(mutex_);
    discard();
}

void CalcUndoStep::discard() {
    state_ = State::Dropped;
    changes_.clear();
    cleanups_.clear();
}

}  // namespace mergeloom::libreoffice
