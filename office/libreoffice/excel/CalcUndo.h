#pragma once

#include "office/libreoffice/session/OfficeConnection.h"

#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <functional>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// The one step that can be taken back. The step keeps its own way back from each change: Calc's undo manager
/// knows nothing of shapes, copies all names of the document with each one that is added, and ended the
/// office when a drop with a picture was taken back. It is kept from collecting steps.
class CalcUndo {
  public:
    CalcUndo(OfficeConnection& connection, const Reference<css::document::XUndoManager>& manager,
             Reference<css::frame::XModel> model);

    void start();
    void stop();
    [[nodiscard]] bool isRecording() const { return depth_ > 0; }
    /// A change is about to be made: what was recorded before cannot be taken back past it.
    void change();
    /// Keeps the way back from a change; outside a record it is dropped.
    void keep(std::function<void()> wayBack);
    /// Whether there is a step that undo() may be asked for, be it one that is still recorded.
    [[nodiscard]] bool mayTakeBack() const { return depth_ > 0 || hasStep_; }
    /// Keeps the way back from what is done later on behalf of the step; only while there is one.
    void keepLater(std::function<void()> wayBack) { waysBack_.push_back(std::move(wayBack)); }
    /// Called when the recorded step can no longer be taken back, in order to remove what it hid.
    void whenForgotten(std::function<void()> cleanup);
    /// False when there is no step with a change.
    bool undo();
    /// Forgets the step where something is hidden for its sake, so that no file gets it.
    void removeWhatIsHidden();

  private:
    void forget();

    OfficeConnection& connection_;
    Reference<css::frame::XModel> model_;
    std::vector<std::function<void()>> waysBack_;
    std::vector<std::function<void()>> cleanups_;
    int depth_ = 0;
    bool hasStep_ = false;
};

}  // namespace mergeloom::libreoffice
