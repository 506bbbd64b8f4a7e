#pragma once

#include "office/libreoffice/session/OfficeConnection.h"

#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// The one step that can be taken back. Calc takes back what it did to cells, names, columns and rows; for
/// what it does not (shapes, and what this side remembers) the step keeps its own way back. Outside a record
/// Calc is kept from collecting steps, since nobody would take them back.
class CalcUndo {
  public:
    CalcUndo(OfficeConnection& connection, Reference<css::document::XUndoManager> manager,
             Reference<css::frame::XModel> model);

    void start(const std::string& name);
    void stop();
    [[nodiscard]] bool isRecording() const { return depth_ > 0; }
    /// A change is about to be made: what was recorded before cannot be taken back past it.
    void change();
    /// Keeps the way back from a change that Calc would not take back; outside a record it is dropped.
    void keep(std::function<void()> wayBack);
    /// Called when the recorded step can no longer be taken back, in order to remove what it hid.
    void whenForgotten(std::function<void()> cleanup);
    /// False when there is no step with a change.
    bool undo();
    /// Forgets the step where something is hidden for its sake, so that no file gets it.
    void removeWhatIsHidden();

  private:
    void forget();

    OfficeConnection& connection_;
    Reference<css::document::XUndoManager> manager_;
    Reference<css::frame::XModel> model_;
    std::vector<std::function<void()>> waysBack_;
    std::vector<std::function<void()>> cleanups_;
    int depth_ = 0;
    bool hasStep_ = false;
};

}  // namespace mergeloom::libreoffice
