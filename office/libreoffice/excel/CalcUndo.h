#pragma once

#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/Undo.h"

#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/document/XUndoAction.hpp>
#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/implbase2.hxx>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// The undo actions of a step, in the order of its changes.
class CalcUndoStep {
  public:
    using Actions = std::vector<std::function<void()>>;

    CalcUndoStep(model::UndoActions undoActions, Actions cleanups)
        : undoActions_(std::move(undoActions)), cleanups_(std::move(cleanups)) {}

    /// Undoes the step. Returns false if that was done before or is no longer possible.
    bool undo();
    /// Removes the shapes that the step hid; it cannot be undone afterwards. Returns false if there are none.
    bool cleanUp();
    /// Discards all actions; the step cannot be undone afterwards.
    void drop();

  private:
    std::mutex mutex_;  ///< users undo steps on threads of the bridge
    model::UndoActions undoActions_;
    Actions cleanups_;
};

/// A step in the office's own undo list, where users undo it. It cannot be redone, since its changes are not
/// recorded.
class CalcUndoAction final : public cppu::WeakImplHelper2<css::document::XUndoAction, css::awt::XCallback> {
  public:
    CalcUndoAction(const std::string& title, std::shared_ptr<CalcUndoStep> step,
                   const Reference<css::document::XUndoManager>& manager,
                   const Reference<css::frame::XModel>& model,
                   const Reference<css::uno::XComponentContext>& office)
        : title_(toUno(title)), step_(std::move(step)), manager_(manager), model_(model), office_(office) {}

    OUString SAL_CALL getTitle() override { return title_; }
    void SAL_CALL undo() override;
    void SAL_CALL redo() override;
    /// Clears the office's redo list, which the office does not allow within an undo, and shows what the
    /// active cell holds now.
    void SAL_CALL notify(const css::uno::Any&) override;

  private:
    const OUString title_;
    const std::shared_ptr<CalcUndoStep> step_;
    const Reference<css::document::XUndoManager> manager_;
    const Reference<css::frame::XModel> model_;
    const Reference<css::uno::XComponentContext> office_;
};

/// The users of undo: the object model alone, or also the user, through the office's own list.
enum class UndoUser { Model, ModelAndUser };

/// The steps that can be undone. A step records its own undo action for each change: Calc's undo manager does
/// not record shapes, copies all names of the document for each one that is added, and crashed the office
/// when a drop with a picture was undone. So it is locked; if a user works with the document too, only while
/// a step is recorded, which is then added to its list. Without a user there is one step.
class CalcUndo {
  public:
    CalcUndo(OfficeConnection& connection, const Reference<css::document::XUndoManager>& manager,
             const Reference<css::frame::XModel>& model, UndoUser user);
    CalcUndo(const CalcUndo&) = delete;
    CalcUndo& operator=(const CalcUndo&) = delete;
    ~CalcUndo();

    void start(const std::string& name);
    /// Returns true when the step has changes.
    bool stop();
    [[nodiscard]] bool isRecording() const { return depth_ > 0; }
    /// Must be called before a change: the steps recorded before cannot be undone past it.
    void change();
    /// Records the undo action of a change; outside of a record it is dropped.
    void record(std::function<void()> undoAction);
    /// Returns true if there is a step to undo, which may still be recorded.
    [[nodiscard]] bool canUndo() const { return depth_ > 0 || hasStep_; }
    /// Records the undo action of a delayed change that belongs to the step; only while there is one.
    void recordLater(std::function<void()> undoAction) { undoActions_.add(std::move(undoAction)); }
    /// Adds a function that is called when the recorded step can no longer be undone, in order to remove what
    /// it hid.
    void onDiscard(std::function<void()> cleanup);
    /// Undoes the last step. Returns false if there is no step with a change.
    bool undo();
    /// Discards the steps that hid shapes, so that these are not written into files.
    void removeHiddenShapes();

  private:
    void discard();
    void addToOfficeList();
    [[nodiscard]] bool undoInOffice();

    OfficeConnection& connection_;
    Reference<css::document::XUndoManager> manager_;
    Reference<css::frame::XModel> model_;
    const UndoUser user_;
    std::string name_;
    model::UndoActions undoActions_;
    CalcUndoStep::Actions cleanups_;
    std::vector<std::shared_ptr<CalcUndoStep>> officeSteps_;
    int depth_ = 0;
    bool hasStep_ = false;
    bool wasEmpty_ = false;  ///< true if the last record had no changes
};

}  // namespace mergeloom::libreoffice
