#include "office/libreoffice/excel/CalcUndo.h"

namespace mergeloom::libreoffice {

CalcUndo::CalcUndo(OfficeConnection& connection, const Reference<css::document::XUndoManager>& manager,
                   Reference<css::frame::XModel> model)
    : connection_(connection), model_(std::move(model)) {
    connection_.call([&] { manager->lock(); });
}

void CalcUndo::start() {
    if (depth_++ > 0) return;
    forget();
    connection_.call([&] { model_->lockControllers(); });
}

void CalcUndo::stop() {
    if (depth_ == 0 || --depth_ > 0) return;
    connection_.call([&] { model_->unlockControllers(); });
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
