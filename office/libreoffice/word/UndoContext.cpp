#include "office/libreoffice/word/UndoContext.h"

#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/document/XUndoManagerListener.hpp>
#include <cppuhelper/implbase1.hxx>

namespace mergeloom::libreoffice {

/// Notes that a context was left without a change. The list itself cannot be compared: it has a limited
/// length.
class UndoContext::Listener final : public cppu::WeakImplHelper1<css::document::XUndoManagerListener> {
  public:
    [[nodiscard]] bool wasCancelled() const { return wasCancelled_; }

    void SAL_CALL cancelledContext(const css::document::UndoManagerEvent&) override { wasCancelled_ = true; }

    void SAL_CALL undoActionAdded(const css::document::UndoManagerEvent&) override {}
    void SAL_CALL actionUndone(const css::document::UndoManagerEvent&) override {}
    void SAL_CALL actionRedone(const css::document::UndoManagerEvent&) override {}
    void SAL_CALL allActionsCleared(const css::lang::EventObject&) override {}
    void SAL_CALL redoActionsCleared(const css::lang::EventObject&) override {}
    void SAL_CALL resetAll(const css::lang::EventObject&) override {}
    void SAL_CALL enteredContext(const css::document::UndoManagerEvent&) override {}
    void SAL_CALL enteredHiddenContext(const css::document::UndoManagerEvent&) override {}
    void SAL_CALL leftContext(const css::document::UndoManagerEvent&) override {}
    void SAL_CALL leftHiddenContext(const css::document::UndoManagerEvent&) override {}
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

  private:
    bool wasCancelled_ = false;
};

UndoContext::UndoContext(const Reference<css::document::XUndoManager>& undo, const std::string& name)
    : undo_(undo), listener_(new Listener) {
    undo_->enterUndoContext(toUno(name));
    undo_->addUndoManagerListener(listener_.get());
}

UndoContext::~UndoContext() = default;

bool UndoContext::leave() {
    undo_->leaveUndoContext();
    undo_->removeUndoManagerListener(listener_.get());
    return !listener_->wasCancelled();
}

}  // namespace mergeloom::libreoffice
