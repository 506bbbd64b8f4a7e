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

ViewUpdates::ViewUpdates(OfficeWorker& worker, HostedOffice& office, std::function<bool()> showsDocument)
    : worker_(worker), office_(office), showsDocument_(std::move(showsDocument)) {
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

/// Starts the timer as soon as no command is running.
void ViewUpdates::startAfterCommand(QTimer& timer) {
    worker_.callWhenFree([&timer] {
        if (!timer.isActive()) timer.start();
    });
}

/// Ignores errors: they are those of an office that has ended, which is reported in another way.
void ViewUpdates::updateMarksNow() {
    haveMarksMoved_ = isUpdatingMarks_;
    if (isUpdatingMarks_ || !showsDocument_()) return;
    if (worker_.isWaitedFor()) return startAfterCommand(marksTimer_);
    isUpdatingMarks_ = true;
    const auto duration = std::make_shared<milliseconds>();
    worker_.post([this, duration] { *duration = durationOf([this] { office_.host().updateMarks(); }); },
                 [this, duration](const std::exception_ptr& /*error*/) {
                     isUpdatingMarks_ = false;
                     marksTimer_.setInterval(std::max(kMarksInterval, kMarksRest * *duration));
                     if (std::exchange(haveMarksMoved_, false)) updateMarks();
                 });
}

void ViewUpdates::setLook(const HostLook& look) {
    look_ = look;
    isLookPending_ = true;
    lookTimer_.start();
}

void ViewUpdates::resume() {
    updateMarks();
    if (isLookPending_) lookTimer_.start();
}

void ViewUpdates::cancel() {
    marksTimer_.stop();
    lookTimer_.stop();
    isLookPending_ = false;
}

void ViewUpdates::setLookNow() {
    if (!showsDocument_()) return;
    if (worker_.isWaitedFor()) return startAfterCommand(lookTimer_);
    isLookPending_ = false;
    const auto isSet = std::make_shared<bool>(true);
    worker_.post([this, look = look_, isSet] { *isSet = office_.host().setLook(look); },
                 [this, isSet](const std::exception_ptr& /*error*/) {
                     if (!*isSet) lookTimer_.start();
                     updateMarks();
                 });
}

}  // namespace mergeloom
