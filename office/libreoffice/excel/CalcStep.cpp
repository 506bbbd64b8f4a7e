#include "office/libreoffice/excel/CalcStep.h"

#include "base/AutomationError.h"

#include <com/sun/star/document/UndoFailedException.hpp>

namespace mergeloom::libreoffice {

bool CalcStep::takeBack() {
    const std::lock_guard lock(mutex_);
    if (undoActions_.isEmpty()) return false;
    undoActions_.undo();
    cleanups_.clear();
    return true;
}

bool CalcStep::cleanUp() {
    const std::lock_guard lock(mutex_);
    if (cleanups_.empty()) return false;
    for (const auto& cleanup : std::exchange(cleanups_, {}))
        cleanup();
    undoActions_.clear();
    return true;
}

void CalcStep::drop() {
    const std::lock_guard lock(mutex_);
    undoActions_.clear();
    cleanups_.clear();
}

void CalcStepAction::undo() try {
    if (!step_->takeBack()) throw css::document::UndoFailedException();
    later_->addCallback(this, {});
} catch (const AutomationError& error) {
    css::document::UndoFailedException failure;
    failure.Message = toUno(error.description());
    throw failure;
}

void CalcStepAction::redo() {
    throw css::document::UndoFailedException();
}

void CalcStepAction::notify(const css::uno::Any&) try {
    manager_->clearRedo();
} catch (const css::uno::Exception&) {
    // The document is closed, or an undo runs, at whose end this is asked for again.
}

}  // namespace mergeloom::libreoffice
