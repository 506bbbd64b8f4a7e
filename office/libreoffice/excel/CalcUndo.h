#pragma once

#include "office/libreoffice/excel/CalcStep.h"
#include "office/libreoffice/session/OfficeConnection.h"

#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// Who takes steps back: the object model alone, or through the office's own list a user, too.
enum class UndoUser { Model, Everybody };

/// The steps that can be taken back. A step keeps its own way back from each change: Calc's undo manager
/// knows nothing of shapes, copies all names of the document with each one that is added, and ended the
/// office when a drop with a picture was taken back. It is kept from collecting steps; where a user works
/// with the document, too, only while a step is recorded, which then becomes one of its list. Without a user
/// there is one step.
class CalcUndo {
  public:
    CalcUndo(OfficeConnection& connection, const Reference<css::document::XUndoManager>& manager,
             const Reference<css::frame::XModel>& model, UndoUser user);
    CalcUndo(const CalcUndo&) = delete;
    CalcUndo& operator=(const CalcUndo&) = delete;
    ~CalcUndo();

    void start(const std::string& name);
    void stop();
    [[nodiscard]] bool isRecording() const { return depth_ > 0; }
    /// A change is about to be made: what was recorded before cannot be taken back past it.
    void change();
    /// Keeps the way back from a change; outside a record it is dropped.
    void keep(std::function<void()> wayBack);
    /// Whether there is a step that undo() may be asked for, be it one that is still recorded.
    [[nodiscard]] bool mayTakeBack() const { return depth_ > 0 || hasStep_; }
    /// Keeps the way back from what is done later on behalf of the step; only while there is one.
    void keepLater(std::function<void()> wayBack) { undoActions_.add(std::move(wayBack)); }
    /// Called when the recorded step can no longer be taken back, in order to remove what it hid.
    void whenForgotten(std::function<void()> cleanup);
    /// False when there is no step with a change.
    bool undo();
    /// Forgets the steps where something is hidden for their sake, so that no file gets it.
    void removeWhatIsHidden();

  private:
    void forget();
    void handOver();
    [[nodiscard]] bool undoInOffice();

    OfficeConnection& connection_;
    Reference<css::document::XUndoManager> manager_;
    Reference<css::frame::XModel> model_;
    const UndoUser user_;
    std::string name_;
    model::UndoActions undoActions_;
    CalcStep::Actions cleanups_;
    std::vector<std::shared_ptr<CalcStep>> handedOver_;
    int depth_ = 0;
    bool hasStep_ = false;
    bool wasEmpty_ = false;  ///< the last record
};

}  // namespace mergeloom::libreoffice
