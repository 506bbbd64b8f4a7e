#include "office/libreoffice/excel/CalcUndo.h"

#include "office/libreoffice/session/UnoText.h"

namespace mergeloom::libreoffice {

CalcUndo::CalcUndo(OfficeConnection& connection, Reference<css::document::XUndoManager> manager,
                   Reference<css::frame::XModel> model)
    : connection_(connection), manager_(std::move(manager)), model_(std::move(model)) {
    connection_.call([&] { manager_->lock(); });
}

void CalcUndo::start(const std::string& name) {
    if (depth_ == 0) {
        forget();
        connection_.call([&] {
            manager_->unlock();
            manager_->clear();
            manager_->enterUndoContext(toUno(name));
            model_->lockControllers();
        });
    }
    ++depth_;
}

void CalcUndo::stop() {
    if (depth_ == 0 || --depth_ > 0) return;
    connection_.call([&] {
        model_->unlockControllers();
        manager_->leaveUndoContext();
        manager_->lock();
    });
}

void CalcUndo::change() {
    if (depth_ == 0) forget();
    hasStep_ = depth_ > 0;
}

void CalcUndo::keep(std::function<void()> wayBack) {
    if (depth_ > 0) waysBack_.push_back(std::move(wayBack));
}

void CalcUndo::whenForgotten(std::function<void()> cleanup) {
    cleanups_.push_back(std::move(cleanup));
}

bool CalcUndo::undo() {
    if (depth_ > 0 || !hasStep_) return false;
    connection_.call([&] {
        if (manager_->isUndoPossible()) manager_->undo();
    });
    for (auto back = waysBack_.rbegin(); back != waysBack_.rend(); ++back)
        (*back)();
    waysBack_.clear();
    cleanups_.clear();
    hasStep_ = false;
    return true;
}

void CalcUndo::removeWhatIsHidden() {
    if (!cleanups_.empty()) forget();
}

void CalcUndo::forget() {
    hasStep_ = false;
    waysBack_.clear();
    const auto cleanups = std::exchange(cleanups_, {});
    for (const auto& cleanup : cleanups)
        cleanup();
}

}  // namespace mergeloom::libreoffice
