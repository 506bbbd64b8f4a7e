#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/UndoActions.h"

#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/awt/XRequestCallback.hpp>
#include <com/sun/star/document/XUndoAction.hpp>
#include <com/sun/star/document/XUndoManager.hpp>
#include <cppuhelper/implbase2.hxx>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// What it takes to take a step back, in the order in which it was done.
class CalcStep {
  public:
    using Actions = std::vector<std::function<void()>>;

    CalcStep(model::UndoActions undoActions, Actions cleanups)
        : undoActions_(std::move(undoActions)), cleanups_(std::move(cleanups)) {}

    /// Takes the step back; false when that has been done, or is not possible any more.
    bool takeBack();
    /// Removes what was hidden for its sake; it cannot be taken back afterwards. False when nothing was.
    bool cleanUp();
    /// It cannot be taken back from here on.
    void drop();

  private:
    std::mutex mutex_;  ///< users take steps back on threads of the bridge
    model::UndoActions undoActions_;
    Actions cleanups_;
};

/// A step in the office's own list, where users take it back. What led to it is not kept, so it cannot be
/// done again.
class CalcStepAction final : public cppu::WeakImplHelper2<css::document::XUndoAction, css::awt::XCallback> {
  public:
    CalcStepAction(const std::string& title, std::shared_ptr<CalcStep> step,
                   const Reference<css::document::XUndoManager>& manager,
                   const Reference<css::awt::XRequestCallback>& later)
        : title_(toUno(title)), step_(std::move(step)), manager_(manager), later_(later) {}

    OUString SAL_CALL getTitle() override { return title_; }
    void SAL_CALL undo() override;
    void SAL_CALL redo() override;
    /// Takes away what the office offers to do again, which it does not let happen within an undo.
    void SAL_CALL notify(const css::uno::Any&) override;

  private:
    const OUString title_;
    const std::shared_ptr<CalcStep> step_;
    const Reference<css::document::XUndoManager> manager_;
    const Reference<css::awt::XRequestCallback> later_;
};

}  // namespace mergeloom::libreoffice
