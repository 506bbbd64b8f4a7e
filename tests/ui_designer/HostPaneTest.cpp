#include "ui/designer/HostArea.h"

#include <gmock/gmock.h>

#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

namespace mergeloom {
namespace {

TEST(HostPane, TellsOnlyTheLastOfManySizes) {
    QWidget window;
    HostPane pane(&window);
    window.show();
    QSignalSpy sizes(&pane, &HostPane::resized);
    for (int width = 100; width <= 200; ++width)
        pane.resize(width, 50);
    ASSERT_TRUE(sizes.wait());
    QTest::qWait(100);
    ASSERT_EQ(sizes.count(), 1);
    EXPECT_EQ(sizes[0][0].toInt(), 200);
    EXPECT_EQ(sizes[0][1].toInt(), 50);
    EXPECT_EQ(pane.hostWindow().width, 200);
}

TEST(HostPane, TellsItsSizeBeforeADrop) {
    QWidget window;
    HostPane pane(&window);
    window.show();
    QSignalSpy sizes(&pane, &HostPane::resized);
    pane.resize(300, 50);
    (void)pane.takeDropPoint();
    ASSERT_EQ(sizes.count(), 1);
    EXPECT_EQ(sizes[0][0].toInt(), 300);
}

/// The source of this drag is no widget of this program.
TEST(HostPane, TakesNoDragOfAnotherProgram) {
    QWidget window;
    HostPane pane(&window);
    window.show();
    QSignalSpy points(&pane, &HostPane::draggedOver);
    QMimeData text;
    text.setText(QStringLiteral("text"));
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&pane, &enter);
    EXPECT_FALSE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    drop.ignore();
    QCoreApplication::sendEvent(&pane, &drop);
    EXPECT_FALSE(drop.isAccepted());
    EXPECT_FALSE(pane.takeDropPoint());
    EXPECT_EQ(points.count(), 0);
}

}  // namespace
}  // namespace mergeloom
