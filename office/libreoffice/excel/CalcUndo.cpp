#include "office/libreoffice/excel/CalcUndo.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcView.h"

#include <com/sun/star/awt/AsyncCallback.hpp>
#include <com/sun/star/document/UndoFailedException.hpp>

namespace mergeloom::libreoffice {

void lockAgain(const Reference<css::document::XUndoManager>& manager) {
    manager->unlock();
    manager->lock();
}

namespace {

/// Keeps an undo list from recording the changes of undoing and redoing.
class UndoLock {
  public:
    explicit UndoLock(const Reference<css::document::XUndoManager>& manager) : manager_(manager) {
        manager_->lock();
    }
    UndoLock(const UndoLock&) = delete;
    UndoLock& operator=(const UndoLock&) = delete;
    ~UndoLock() {
        try {
            manager_->unlock();
        } catch (const css::uno::Exception&) {
            // The document is closed, and its list with it.
        }
    }

  private:
    const Reference<css::document::XUndoManager>& manager_;
};

}  // namespace

void CalcUndoAction::undo() {
    run(&CalcUndoStep::undo);
}

void CalcUndoAction::redo() {
    run(&CalcUndoStep::redo);
}

void CalcUndoAction::run(bool (CalcUndoStep::*change)()) try {
    const UndoLock lock(manager_);
    if (!(*step_.*change)()) throw css::document::UndoFailedException();
    css::awt::AsyncCallback::create(office_)->addCallback(this, {});
} catch (const AutomationError& error) {
    css::document::UndoFailedException failure;
    failure.Message = toUno(error.description());
    throw failure;
}

void CalcUndoAction::notify(const css::uno::Any&) try {
    showActiveCell(office_, model_->getCurrentController());
} catch (const css::uno::Exception&) {
    // The document is closed.
}

CalcUndo::CalcUndo(OfficeConnection& connection, const Reference<css::document::XUndoManager>& manager,
                   const Reference<css::frame::XModel>& model, UndoUser user)
    : connection_(connection), manager_(manager), model_(model), user_(user) {
    if (user_ == UndoUser::Model) connection_.call([&] { manager_->lock(); });
}

/// The office may keep its undo list for longer than this object lives.
CalcUndo::~CalcUndo() {
    for (const std::shared_ptr<CalcUndoStep>& step : officeSteps_)
        step->drop();
}

void CalcUndo::start(const std::string& name) {
    if (depth_++ > 0) return;
    discard();
    name_ = name;
    connection_.call([&] {
        if (user_ == UndoUser::ModelAndUser) manager_->lock();
        model_->lockControllers();
    });
}

bool CalcUndo::stop() {
    if (depth_ == 0 || --depth_ > 0) return hasStep_;
    const bool hasChanges = hasStep_;
    connection_.call([&] {
        model_->unlockControllers();
        if (user_ == UndoUser::ModelAndUser) addToOfficeList();
    });
    return hasChanges;
}

/// Adds the recorded step to the office's undo list.
void CalcUndo::addToOfficeList() {
    manager_->unlock();
    wasEmpty_ = !hasStep_;
    hasStep_ = false;
    if (wasEmpty_) return;
    officeSteps_.push_back(
        std::make_shared<CalcUndoStep>(std::exchange(changes_, {}), std::exchange(cleanups_, {})));
    manager_->addUndoAction(
        new CalcUndoAction(name_, officeSteps_.back(), manager_, model_, connection_.context()));
}

void CalcUndo::keepLocked() {
    if (depth_ > 0 || user_ == UndoUser::Model) lockAgain(manager_);
}

void CalcUndo::change() {
    if (depth_ == 0) discard();
    hasStep_ = depth_ > 0;
}

void CalcUndo::record(std::function<void()> undoAction) {
    if (depth_ > 0) changes_.add(std::move(undoAction));
}

void CalcUndo::recordExchange(std::function<void()> exchange) {
    if (depth_ > 0) recordExchangeLater(std::move(exchange));
}

void CalcUndo::recordExchangeLater(std::function<void()> exchange) {
    changes_.addExchange([&connection = connection_, manager = manager_, exchange = std::move(exchange)] {
        connection.call([&] { lockAgain(manager); });
        exchange();
    });
}

void CalcUndo::onDiscard(std::function<void()> cleanup) {
    cleanups_.push_back(std::move(cleanup));
}

bool CalcUndo::undo() {
    if (depth_ > 0) return false;
    if (user_ == UndoUser::ModelAndUser) return undoInOffice();
    if (!hasStep_) return false;
    changes_.undo();
    changes_.clear();
    cleanups_.clear();
    hasStep_ = false;
    return true;
}

/// A record without changes is not a step; undoing must not undo the user's own steps before it. Steps that
/// the model undoes are not offered to the user for redoing.
bool CalcUndo::undoInOffice() {
    if (wasEmpty_) return false;
    return connection_.call([&] {
        if (!manager_->isUndoPossible()) return false;
        manager_->undo();
        manager_->clearRedo();
        return true;
    });
}

void CalcUndo::removeHiddenShapes() {
    if (!cleanups_.empty()) discard();
    bool removed = false;
    for (const std::shared_ptr<CalcUndoStep>& step : officeSteps_)
        removed = step->cleanUp() || removed;
    if (removed) connection_.call([&] { manager_->clear(); });
}

void CalcUndo::discard() {
    hasStep_ = false;
    changes_.clear();
    const auto cleanups = std::exchange(cleanups_, {});
    for (const auto& cleanup : cleanups)
        cleanup();
}

}  // namespace mergeloom::libreoffice
