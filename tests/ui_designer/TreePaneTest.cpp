#include "ui/designer/TreePane.h"
#include "ui/designer/mTVHook.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDrag>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

namespace mergeloom {
namespace {

/// "Special", a form with some controls and their drop kinds, and a table.
std::shared_ptr<LoadedStructure> sampleStructure(int controls = 3) {
    auto structure = std::make_shared<LoadedStructure>();
    TreeView& tree = structure->tree;
    tree.Add(0, 0, "Special").SetTag("NoDrag");
    tree.Add(1, 0, "Optional Space").SetTag("Optional Space");
    structure->firstObject = tree.Add(0, 1, "Form \"Orders\"").Index();
    for (int number = 1; number <= controls; ++number) {
        const int control =
            tree.Add(structure->firstObject, number + 1, "Field " + std::to_string(number)).Index();
        for (const char* kind : {"Label", "Value"})
            tree.Add(control, 0, kind).SetTag(kind);
    }
    const int table = tree.Add(0, controls + 2, "Table \"Harbours\"").Index();
    tree.Add(table, controls + 3, "Größe");
    return structure;
}

class TreePaneTest : public testing::Test {
  protected:
    TreePaneTest() {
        pane_.resize(300, 400);
        pane_.show();
        pane_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&pane_));
    }

    QTreeView& view() { return *pane_.findChild<QTreeView*>(QStringLiteral("tvXML")); }
    QLineEdit& box() { return *pane_.findChild<QLineEdit*>(QStringLiteral("search")); }

    /// Returns the rows that can be seen by scrolling, an expanded one with "-", a selected one with "*".
    std::string rows() { return rowsBelow({}, 0); }
    std::string rowsBelow(const QModelIndex& parent, int level) {
        std::string lines;
        const QAbstractItemModel& model = *view().model();
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            const bool expanded = view().isExpanded(index);
            lines += std::string(static_cast<std::size_t>(level), ' ') +
                     index.data().toString().toStdString() + (expanded ? " -" : "") +
                     (view().selectionModel()->isSelected(index) ? " *" : "") + "\n";
            if (expanded) lines += rowsBelow(index, level + 1);
        }
        return lines;
    }
    QModelIndex indexOf(const char16_t* text) {
        const QModelIndexList found =
            view().model()->match(view().model()->index(0, 0), Qt::DisplayRole, QString::fromUtf16(text), 1,
                                  Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0);
    }
    QPoint placeOf(const char16_t* text) { return view().visualRect(indexOf(text)).center(); }

    /// Types a search and waits until the tree shows its result.
    void search(const char16_t* words, const std::string& expected) {
        box().setText(QString::fromUtf16(words));
        EXPECT_TRUE(QTest::qWaitFor([&] { return rows() == expected; }, 2000)) << rows();
    }
    /// Presses a node and moves the mouse far enough for a drag, which without a display ends at once.
    void drag(const char16_t* text) {
        const QPoint place = placeOf(text);
        QTest::mousePress(view().viewport(), Qt::LeftButton, {}, place);
        const QPoint moved = place + QPoint(3 * QApplication::startDragDistance(), 0);
        for (const QPoint& point : {place + QPoint(1, 0), moved, moved}) {
            QMouseEvent move(QEvent::MouseMove, point, view().viewport()->mapToGlobal(point), Qt::NoButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(view().viewport(), &move);
        }
        QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, moved);
    }

    TreePane pane_;
};

TEST_F(TreePaneTest, ShowsAStructureWithItsFirstObjectExpanded) {
    EXPECT_EQ(pane_.selectedNode(), nullptr);
    pane_.show(sampleStructure());
    EXPECT_EQ(rows(), "Special\nForm \"Orders\" -\n Field 1\n Field 2\n Field 3\nTable \"Harbours\"\n");
    EXPECT_EQ(pane_.selectedNode(), nullptr);
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, placeOf(u"Field 2"));
    ASSERT_NE(pane_.selectedNode(), nullptr);
    EXPECT_EQ(pane_.selectedNode()->Text(), "Field 2");

    pane_.show(sampleStructure(1));
    EXPECT_EQ(rows(), "Special\nForm \"Orders\" -\n Field 1\nTable \"Harbours\"\n");
    EXPECT_EQ(pane_.selectedNode(), nullptr);
    pane_.clear();
    EXPECT_EQ(rows(), "");
    EXPECT_EQ(pane_.structure(), nullptr);
}

TEST_F(TreePaneTest, TypingNarrowsTheTreeAndEmptyingBringsItBack) {
    pane_.show(sampleStructure());
    view().expand(indexOf(u"Field 3"));
    view().setCurrentIndex(indexOf(u"Field 2"));
    const std::string before = rows();

    search(u"grosse", "Table \"Harbours\" -\n Größe\n");
    EXPECT_EQ(pane_.selectedNode(), nullptr) << "it is hidden";
    // The drop kinds of a control that matches are shown, but collapsed.
    search(u"field 2", "Form \"Orders\" -\n Field 2\n");
    EXPECT_EQ(view().model()->rowCount(indexOf(u"Field 2")), 2);
    search(u"special", "Special\n");
    search(u"value", "Form \"Orders\" -\n Field 1 -\n  Value\n Field 2 -\n  Value\n Field 3 -\n  Value\n");
    search(u"nowhere", "");
    search(u"", before);
    // A search that is cleared before its answer comes changes nothing.
    box().setText(QStringLiteral("grosse"));
    box().clear();
    QTest::qWait(30);
    EXPECT_EQ(rows(), before);

    search(u"space", "Special -\n Optional Space\n");
    pane_.show(sampleStructure(1));
    EXPECT_EQ(box().text(), QString());
    QTest::qWait(30);
    EXPECT_EQ(rows(), "Special\nForm \"Orders\" -\n Field 1\nTable \"Harbours\"\n");
}

TEST_F(TreePaneTest, ASelectedNodeStaysSelectedWhileItIsShown) {
    pane_.show(sampleStructure());
    view().setCurrentIndex(indexOf(u"Field 2"));
    search(u"field", "Form \"Orders\" -\n Field 1\n Field 2 *\n Field 3\n");
    EXPECT_EQ(pane_.selectedNode()->Text(), "Field 2");
}

TEST_F(TreePaneTest, LargeTreesOpenToTheLastMatch) {
    constexpr int kControls = 30000;
    pane_.show(sampleStructure(kControls));
    view().verticalScrollBar()->setValue(100);
    box().setText(QStringLiteral("label"));
    const auto lastIsOpen = [&] {
        const QModelIndex form = view().model()->index(0, 0);
        const int controls = view().model()->rowCount(form);
        return controls == kControls && view().isExpanded(view().model()->index(controls - 1, 0, form));
    };
    EXPECT_TRUE(QTest::qWaitFor(lastIsOpen));
    // One match below each control, all reachable with the scroll bar.
    const int rowsInAll = 1 + 2 * kControls;
    EXPECT_TRUE(QTest::qWaitFor([&] { return view().verticalScrollBar()->maximum() > rowsInAll - 100; }));
    box().clear();
    EXPECT_EQ(view().verticalScrollBar()->value(), 100);
}

TEST_F(TreePaneTest, LongTextsAreReachedByScrolling) {
    const auto structure = sampleStructure();
    pane_.show(structure);
    QApplication::processEvents();
    EXPECT_EQ(view().columnWidth(0), view().viewport()->width());
    structure->tree.Add(structure->firstObject, 99, std::string(200, 'w'));
    pane_.show(structure);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view().horizontalScrollBar()->maximum() > 0; }));
}

TEST_F(TreePaneTest, KeysLeadFromTheBoxToTheTree) {
    pane_.show(sampleStructure());
    box().setFocus();
    search(u"3", "Form \"Orders\" -\n Field 3\n");
    QTest::keyClick(&box(), Qt::Key_Down);
    EXPECT_TRUE(view().hasFocus());
    EXPECT_EQ(pane_.selectedNode()->Text(), "Field 3");
    QTest::keyClick(&box(), Qt::Key_Escape);
    EXPECT_EQ(box().text(), QString());
    EXPECT_EQ(rows(), "Special\nForm \"Orders\" -\n Field 1\n Field 2\n Field 3\nTable \"Harbours\"\n");
}

TEST_F(TreePaneTest, InsertingIsAskedForByAKey) {
    const QSignalSpy inserts(&pane_, &TreePane::insertRequested);
    pane_.show(sampleStructure());
    view().setFocus();
    QTest::keyClick(&view(), Qt::Key_Insert);
    EXPECT_EQ(inserts.count(), 0) << "nothing is selected";
    view().setCurrentIndex(indexOf(u"Special"));
    QTest::keyClick(&view(), Qt::Key_Insert);
    EXPECT_EQ(inserts.count(), 0) << "it cannot be inserted";

    view().setCurrentIndex(indexOf(u"Field 1"));
    QTest::keyClick(&view(), Qt::Key_Insert);
    EXPECT_EQ(inserts.count(), 1);
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, placeOf(u"Field 1"));
    EXPECT_EQ(inserts.count(), 1);
}

TEST_F(TreePaneTest, ButtonsAskForLoadingAndCancelling) {
    const QSignalSpy loads(&pane_, &TreePane::loadRequested);
    const QSignalSpy cancels(&pane_, &TreePane::cancelRequested);
    auto* const load = pane_.findChild<QPushButton*>(QStringLiteral("cmdLoadXML"));
    load->click();
    EXPECT_EQ(loads.count(), 1);
    const QSignalSpy databases(&pane_, &TreePane::databaseRequested);
    auto* const database = pane_.findChild<QPushButton*>(QStringLiteral("cmdOpenDatabase"));
    database->click();
    EXPECT_EQ(databases.count(), 1);
    QPushButton* cancel = nullptr;
    for (auto* const button : pane_.findChildren<QPushButton*>())
        if (button != load && button != database) cancel = button;
    EXPECT_FALSE(cancel->isVisible());
    pane_.setLoading(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cancel->isVisible(); }));
    cancel->click();
    EXPECT_EQ(cancels.count(), 1);
    pane_.setLoading(false);
    EXPECT_FALSE(cancel->isVisible());
}

TEST_F(TreePaneTest, ANodeThatCannotBeDraggedIsNot) {
    const QSignalSpy finished(&pane_, &TreePane::dragFinished);
    pane_.show(sampleStructure());
    drag(u"Special");
    EXPECT_EQ(finished.count(), 1);
    EXPECT_EQ(pane_.findChild<QDrag*>(), nullptr);
    EXPECT_EQ(pane_.selectedNode()->Text(), "Special");
    // The tree was hooked nevertheless.
    QFocusEvent lost(QEvent::FocusOut);
    QApplication::sendEvent(&pane_.tvXML(), &lost);
    EXPECT_TRUE(gTreeLostFocus);
    UnhookTreeView(pane_.tvXML());
}

TEST_F(TreePaneTest, ADragCarriesTheNodeUnderTheMouseAsAnEmptyText) {
    const QSignalSpy finished(&pane_, &TreePane::dragFinished);
    pane_.show(sampleStructure());
    view().setCurrentIndex(indexOf(u"Field 1"));
    drag(u"Field 3");
    const auto* const drag = pane_.findChild<QDrag*>();  // until the loop runs again
    ASSERT_NE(drag, nullptr);
    EXPECT_EQ(drag->mimeData()->formats(), QStringList{QStringLiteral("text/plain")});
    EXPECT_FALSE(drag->pixmap().isNull());
    EXPECT_EQ(pane_.selectedNode()->Text(), "Field 3");
    EXPECT_EQ(finished.count(), 1);
    UnhookTreeView(pane_.tvXML());
}

}  // namespace
}  // namespace mergeloom
