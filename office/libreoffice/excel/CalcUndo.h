#pragma once

#include "office/libreoffice/excel/CalcChanges.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/document/XUndoAction.hpp>
#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/implbase2.hxx>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// A step in the office's own undo list, where users undo and redo it.
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
    /// Shows the present content of the active cell, which the office does not do by itself.
    void SAL_CALL notify(const css::uno::Any&) override;

  private:
    void run(bool (CalcUndoStep::*change)());

    const OUString title_;
    const std::shared_ptr<CalcUndoStep> step_;
    const Reference<css::document::XUndoManager> manager_;
    const Reference<css::frame::XModel> model_;
    const Reference<css::uno::XComponentContext> office_;
};

/// Locks a locked undo list again: Calc unlocks it when it sets the texts of cells or the sizes of rows.
void lockAgain(const Reference<css::document::XUndoManager>& manager);

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
    /// Locks the office's list again if it is to be locked. Must be called within a call, after each change
    /// of texts or sizes that another change follows.
    void keepLocked();
    [[nodiscard]] const Reference<css::document::XUndoManager>& manager() const { return manager_; }
    [[nodiscard]] bool isRecording() const { return depth_ > 0; }
    /// Must be called before a change: the steps recorded before cannot be undone past it.
    void change();
    /// Records how to undo a change of this process's copy of the document's state. Does nothing outside of a
    /// record.
    void record(std::function<void()> undoAction);
    /// Records a change of the document by a function that undoes and redoes it (CalcChanges::addExchange).
    void recordExchange(std::function<void()> exchange);
    /// Returns true if there is a step to undo, which may still be recorded.
    [[nodiscard]] bool canUndo() const { return depth_ > 0 || hasStep_; }
    /// Record a delayed change that belongs to the step; only while there is one.
    void recordLater(std::function<void()> undoAction) { changes_.add(std::move(undoAction)); }
    void recordExchangeLater(std::function<void()> exchange);
    /// Adds a function that is called when the recorded step can no longer be undone, in order to remove what
    /// it hid.
    void onDiscard(std::function<void()> cleanup);
    /// Returns true if the office's own list may hold steps of this object.
    [[nodiscard]] bool hasOfficeSteps() const { return !officeSteps_.empty(); }
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
    CalcChanges changes_;
    CalcUndoStep::Actions cleanups_;
    std::vector<std::shared_ptr<CalcUndoStep>> officeSteps_;
    int depth_ = 0;
    bool hasStep_ = false;
    bool wasEmpty_ = false;  ///< true if the last record had no changes
};

}  // namespace mergeloom::libreoffice
