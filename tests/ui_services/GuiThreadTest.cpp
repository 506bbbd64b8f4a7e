#include "ui/services/GuiThread.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <future>
#include <stdexcept>

namespace mergeloom {
namespace {

/// Runs the event loop until another thread has ended.
template <typename Task>
auto onAnotherThread(const Task& task) {
    auto result = std::async(std::launch::async, task);
    while (result.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
        QCoreApplication::processEvents();
    return result.get();
}

TEST(GuiThread, RunsAtOnceWhereTheWindowsAre) {
    bool ran = false;
    callOnGuiThread([&] { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_THROW(callOnGuiThread([] { throw std::runtime_error("no"); }), std::runtime_error);
}

TEST(GuiThread, AnotherThreadWaits) {
    QThread* const thread = onAnotherThread([] {
        QThread* seen = nullptr;
        callOnGuiThread([&] { callOnGuiThread([&] { seen = QThread::currentThread(); }); });
        return seen;
    });
    EXPECT_EQ(thread, QCoreApplication::instance()->thread());
}

TEST(GuiThread, CarriesWhatIsThrown) {
    const std::string said = onAnotherThread([] {
        try {
            callOnGuiThread([] { throw std::runtime_error("from the windows"); });
        } catch (const std::runtime_error& error) {
            return std::string(error.what());
        }
        return std::string("nothing");
    });
    EXPECT_EQ(said, "from the windows");
}

}  // namespace
}  // namespace mergeloom
