#include "office/libreoffice/excel/CalcUndo.h"

#include <com/sun/star/awt/AsyncCallback.hpp>

namespace mergeloom::libreoffice {

CalcUndo::CalcUndo(OfficeConnection& connection, const Reference<css::document::XUndoManager>& manager,
                   const Reference<css::frame::XModel>& model, UndoUser user)
    : connection_(connection), manager_(manager), model_(model), user_(user) {
    if (user_ == UndoUser::Model) connection_.call([&] { manager_->lock(); });
}

/// The office may keep its list for longer.
CalcUndo::~CalcUndo() {
    for (const std::shared_ptr<CalcStep>& step : handedOver_)
        step->drop();
}

void CalcUndo::start(const std::string& name) {
    if (depth_++ > 0) return;
    forget();
    name_ = name;
    connection_.call([&] {
        if (user_ == UndoUser::Everybody) manager_->lock();
        model_->lockControllers();
    });
}

void CalcUndo::stop() {
    if (depth_ == 0 || --depth_ > 0) return;
    connection_.call([&] {
        model_->unlockControllers();
        if (user_ == UndoUser::Everybody) handOver();
    });
}

/// Makes the recorded step one of the office's list.
void CalcUndo::handOver() {
    manager_->unlock();
    wasEmpty_ = !hasStep_;
    hasStep_ = false;
    if (wasEmpty_) return;
    handedOver_.push_back(
        std::make_shared<CalcStep>(std::exchange(undoActions_, {}), std::exchange(cleanups_, {})));
    const auto later = css::awt::AsyncCallback::create(connection_.context());
    manager_->addUndoAction(new CalcStepAction(name_, handedOver_.back(), manager_, later));
}

void CalcUndo::change() {
    if (depth_ == 0) forget();
    hasStep_ = depth_ > 0;
}

void CalcUndo::keep(std::function<void()> wayBack) {
    if (depth_ > 0) undoActions_.add(std::move(wayBack));
}

void CalcUndo::whenForgotten(std::function<void()> cleanup) {
    cleanups_.push_back(std::move(cleanup));
}

bool CalcUndo::undo() {
    if (depth_ > 0) return false;
    if (user_ == UndoUser::Everybody) return undoInOffice();
    if (!hasStep_) return false;
    undoActions_.undo();
    cleanups_.clear();
    hasStep_ = false;
    return true;
}

/// A record without changes is no step, and the user's own steps before it are none of its.
bool CalcUndo::undoInOffice() {
    if (wasEmpty_) return false;
    return connection_.call([&] {
        if (!manager_->isUndoPossible()) return false;
        manager_->undo();
        return true;
    });
}

void CalcUndo::removeWhatIsHidden() {
    if (!cleanups_.empty()) forget();
    bool removed = false;
    for (const std::shared_ptr<CalcStep>& step : handedOver_)
        removed = step->cleanUp() || removed;
    if (removed) connection_.call([&] { manager_->clear(); });
}

void CalcUndo::forget() {
    hasStep_ = false;
    undoActions_.clear();
    const auto cleanups = std::exchange(cleanups_, {});
    for (const auto& cleanup : cleanups)
        cleanup();
}

}  // namespace mergeloom::libreoffice
