#include "base/AutomationError.h"
#include "ui/designer/OfficeWorker.h"
#include "ui/services/GuiThread.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <semaphore>
#include <string>
#include <thread>
#include <vector>

namespace mergeloom {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

/// Runs the event loop until a condition is true.
template <typename Condition>
bool becomesTrue(const Condition& condition) {
    QElapsedTimer waiting;
    waiting.start();
    while (!condition() && waiting.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return condition();
}

TEST(OfficeWorker, RunsJobsInTheirOrderOnOneThreadOfItsOwn) {
    OfficeWorker worker;
    std::vector<std::thread::id> threads;
    std::vector<int> order;
    const auto job = [&](int number) {
        return [&, number] {
            threads.push_back(std::this_thread::get_id());
            order.push_back(number);
        };
    };
    worker.post(job(1), [](const std::exception_ptr&) {});
    worker.run(job(2));
    worker.run(job(3));
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
    EXPECT_THAT(threads, ElementsAre(threads[0], threads[0], threads[0]));
    EXPECT_NE(threads[0], std::this_thread::get_id());
}

TEST(OfficeWorker, CarriesErrorsBack) {
    OfficeWorker worker;
    const auto failing = [] { throw AutomationError(kCommandFailed, "no"); };
    try {
        worker.run(failing);
        FAIL() << "the error is lost";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kCommandFailed);
    }
    std::exception_ptr told;
    worker.post(failing, [&](const std::exception_ptr& error) { told = error; });
    EXPECT_TRUE(becomesTrue([&] { return told != nullptr; }));
    EXPECT_THROW(std::rethrow_exception(told), AutomationError);
}

TEST(OfficeWorker, AJobMayAskTheUserWhileItIsWaitedFor) {
    OfficeWorker worker;
    std::thread::id asked;
    worker.run([&] { callOnGuiThread([&] { asked = std::this_thread::get_id(); }); });
    EXPECT_EQ(asked, std::this_thread::get_id());
}

TEST(OfficeWorker, OnlyTheNewestCounts) {
    OfficeWorker worker;
    std::binary_semaphore goOn{0};
    std::vector<int> ran;
    const auto busy = [&] { worker.post([&] { goOn.acquire(); }, [](const std::exception_ptr&) {}); };
    busy();
    for (int number = 1; number <= 3; ++number)
        worker.postNewest([&ran, number] { ran.push_back(number); });
    goOn.release();
    EXPECT_TRUE(becomesTrue([&] { return !ran.empty(); }));
    EXPECT_THAT(ran, ElementsAre(3));

    busy();
    worker.postNewest([&ran] { ran.push_back(4); });
    worker.post([&ran] { ran.push_back(5); }, [](const std::exception_ptr&) {});
    goOn.release();
    EXPECT_TRUE(becomesTrue([&] { return ran.size() > 1; }));
    QTest::qWait(50);
    EXPECT_THAT(ran, ElementsAre(3, 5)) << "a caret of before the drop has no place after it";
}

TEST(OfficeWorker, WindowsLiveMeanwhileAndRefuseDrags) {
    struct Target final : QWidget {
        void dragEnterEvent(QDragEnterEvent* event) override { event->accept(); }
    } target;
    target.setAcceptDrops(true);
    const QMimeData data;
    const auto isTaken = [&] {
        QDragEnterEvent event(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&target, &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(isTaken());
    OfficeWorker worker;
    std::binary_semaphore isTicking{0};
    bool wasTaken = true;
    QTimer::singleShot(5, &target, [&] {
        wasTaken = isTaken();
        isTicking.release();
    });
    worker.run([&] { isTicking.acquire(); });
    EXPECT_FALSE(wasTaken);
}

TEST(OfficeWorker, TellsOnlyOfLongJobs) {
    std::vector<std::string> told;
    const auto listenTo = [&told](OfficeWorker& worker) {
        QObject::connect(&worker, &OfficeWorker::busy, &worker, [&told] { told.emplace_back("busy"); });
        QObject::connect(&worker, &OfficeWorker::idle, &worker, [&told] { told.emplace_back("idle"); });
    };
    OfficeWorker patient(1h);
    listenTo(patient);
    patient.run([] {});
    EXPECT_THAT(told, testing::IsEmpty());
    EXPECT_FALSE(patient.isWaitedFor());

    OfficeWorker impatient(1ms);
    listenTo(impatient);
    std::binary_semaphore isTold{0};
    QObject::connect(&impatient, &OfficeWorker::busy, &impatient, [&isTold] { isTold.release(); });
    impatient.run([&isTold] { isTold.acquire(); });
    EXPECT_THAT(told, ElementsAre("busy", "idle"));
}

TEST(OfficeWorker, EndsWithTheJobThatRunsAndForgetsTheOthers) {
    int ran = 0;
    {
        OfficeWorker worker;
        std::binary_semaphore begun{0};
        const auto forget = [](const std::exception_ptr&) {};
        worker.post(
            [&] {
                begun.release();
                callOnGuiThread([&] { ++ran; });
            },
            forget);
        worker.post([&] { ran += 10; }, forget);
        begun.acquire();
    }
    EXPECT_EQ(ran, 1);
}

}  // namespace
}  // namespace mergeloom
