#include "ui/designer/ViewUpdates.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <memory>
#include <utility>

namespace mergeloom {

namespace {

using std::chrono::milliseconds;

/// The least time between two updates of the marks, and the time for the office's own work after an update,
/// as a multiple of the update's duration.
constexpr milliseconds kMarksInterval{40};
constexpr int kMarksRest = 4;

/// The desktop changes its look in several steps.
constexpr milliseconds kLookInterval{200};

milliseconds durationOf(const std::function<void()>& body) {
    const auto begin = std::chrono::steady_clock::now();
    body();
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - begin);
}

}  // namespace

ViewUpdates::ViewUpdates(OfficeWorker& worker, HostedOffice& office, std::function<bool()> isFree)
    : worker_(worker), office_(office), isFree_(std::move(isFree)) {
    marksTimer_.setSingleShot(true);
    marksTimer_.setInterval(kMarksInterval);
    connect(&marksTimer_, &QTimer::timeout, this, &ViewUpdates::updateMarksNow);
    lookTimer_.setSingleShot(true);
    lookTimer_.setInterval(kLookInterval);
    connect(&lookTimer_, &QTimer::timeout, this, &ViewUpdates::setLookNow);
}

void ViewUpdates::setShowsPlaces(bool shown) {
    worker_.post(
        [this, shown] {
            if (office_.isRunning()) office_.host().setShowsBookmarks(shown);
        },
        [](const std::exception_ptr& /*error*/) {});
}

void ViewUpdates::updateMarks() {
    if (!marksTimer_.isActive()) marksTimer_.start();
}

/// Tries again later while the office is busy. Its errors are those of an office that has ended, which is
/// reported in another way.
void ViewUpdates::updateMarksNow() {
    if (!isFree_() || isUpdatingMarks_) return marksTimer_.start();
    isUpdatingMarks_ = true;
    const auto duration = std::make_shared<milliseconds>();
    worker_.post([this, duration] { *duration = durationOf([this] { office_.host().updateMarks(); }); },
                 [this, duration](const std::exception_ptr& /*error*/) {
                     isUpdatingMarks_ = false;
                     marksTimer_.setInterval(std::max(kMarksInterval, kMarksRest * *duration));
                 });
}

void ViewUpdates::setLook(const HostLook& look) {
    look_ = look;
    lookTimer_.start();
}

void ViewUpdates::cancel() {
    marksTimer_.stop();
    lookTimer_.stop();
}

void ViewUpdates::setLookNow() {
    if (!isFree_()) return lookTimer_.start();
    const auto isSet = std::make_shared<bool>(true);
    worker_.post([this, look = look_, isSet] { *isSet = office_.host().setLook(look); },
                 [this, isSet](const std::exception_ptr& /*error*/) {
                     if (!*isSet) lookTimer_.start();
                     updateMarks();
                 });
}

}  // namespace mergeloom
