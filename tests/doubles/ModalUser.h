#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

namespace mergeloom {

/// A user in front of modal windows. Each step is made in the next window that opens or comes back. After a
/// limit of time the open windows are closed, and the test has failed.
class ModalUser {
  public:
    using Step = std::function<void(QWidget& window)>;

    explicit ModalUser(std::vector<Step> steps) : steps_(std::move(steps)) {
        waiting_.start();
        lookLater();
    }
    ModalUser(const ModalUser&) = delete;
    ModalUser& operator=(const ModalUser&) = delete;
    ~ModalUser() { EXPECT_EQ(done_, steps_.size()) << "as many windows opened as were expected"; }

  private:
    static constexpr int kInterval = 5;
    static constexpr qint64 kPatience = 10000;

    /// Starts a new timer each time, since a timer whose step opens the next window would not repeat
    /// meanwhile.
    void lookLater() {
        QTimer::singleShot(kInterval, &context_, [this] { look(); });
    }

    void look() {
        lookLater();
        QWidget* window = QApplication::activeModalWidget();
        const bool isNext = window != nullptr && window != last_ && done_ < steps_.size();
        // A window that comes back must be clicked first.
        if (isNext && !window->isActiveWindow()) window->activateWindow();
        if (isNext && window->isActiveWindow()) {
            last_ = window;
            waiting_.restart();
            return steps_[done_++](*window);
        }
        if (window == nullptr || waiting_.elapsed() < kPatience) return;
        ADD_FAILURE() << "nobody answers the window \"" << window->windowTitle().toStdString() << '"';
        window->close();
    }

    std::vector<Step> steps_;
    std::size_t done_ = 0;
    QPointer<QWidget> last_;
    QElapsedTimer waiting_;
    QObject context_;
};

}  // namespace mergeloom
