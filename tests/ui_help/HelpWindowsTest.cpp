#include "doubles/RecordingMessages.h"
#include "ui/help/HelpWindow.h"
#include "ui/help/HelpWindows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>

namespace mergeloom {
namespace {

using testing::HasSubstr;

class HelpWindowsTest : public testing::Test {
  protected:
    WindowHandle open(HtmlHelpCommand command, const HtmlHelpData& data = {},
                      const std::string& file = MERGELOOM_HELP_FILE) {
        return windows.HtmlHelp(owner.winId(), file, command, data);
    }
    static HelpWindow& windowOf(WindowHandle handle) {
        auto* const window = qobject_cast<HelpWindow*>(QWidget::find(handle));
        if (window == nullptr) throw std::runtime_error("no help window");
        return *window;
    }

    QWidget owner;
    RecordingMessages messages;
    HelpWindows windows{messages};
};

TEST_F(HelpWindowsTest, AWindowServesAllCommandsOfItsOwner) {
    const WindowHandle handle = open(HtmlHelpCommand::DisplayContents);
    const HelpWindow& window = windowOf(handle);
    EXPECT_EQ(window.topic(), QStringLiteral("start.html"));
    EXPECT_EQ(open(HtmlHelpCommand::HelpContext, HelpContext{1050}), handle);
    EXPECT_EQ(window.topic(), QStringLiteral("load-structure.html"));
    EXPECT_EQ(open(HtmlHelpCommand::DisplayTopic, std::string("tree.html")), handle);
    EXPECT_EQ(window.topic(), QStringLiteral("tree.html"));
    auto* const contents = window.findChild<QTreeWidget*>();
    EXPECT_EQ(contents->currentItem()->text(0).toStdString(), "The tree");
    contents->setCurrentItem(contents->itemBelow(contents->currentItem())->parent());
    EXPECT_EQ(window.topic(), QStringLiteral("tree.html")) << "a heading has no topic";
    contents->setCurrentItem(contents->topLevelItem(0));
    EXPECT_EQ(window.topic(), QStringLiteral("start.html"));
    open(HtmlHelpCommand::DisplayTopic, std::string("tree.html"));

    EXPECT_EQ(open(HtmlHelpCommand::DisplayTopic, std::string("nowhere.html")), handle);
    EXPECT_EQ(window.topic(), QStringLiteral("tree.html"));
    EXPECT_THAT(window.statusBar()->currentMessage().toStdString(), HasSubstr("/nowhere.html'"));

    QWidget another;
    EXPECT_NE(windows.HtmlHelp(another.winId(), MERGELOOM_HELP_FILE, HtmlHelpCommand::DisplayIndex, {}),
              handle);
}

TEST_F(HelpWindowsTest, SearchesAndNarrowsTheIndex) {
    const HelpWindow& window =
        windowOf(open(HtmlHelpCommand::DisplaySearch, HelpSearchQuery{"merge fields"}));
    const auto* const pages = window.findChild<QTabWidget*>();
    auto* const hits = pages->currentWidget()->findChild<QListWidget*>();
    ASSERT_GT(hits->count(), 0);
    Q_EMIT hits->itemActivated(hits->item(0));
    EXPECT_EQ(window.topic(), QStringLiteral("convert-fields.html"));

    open(HtmlHelpCommand::DisplayIndex);
    pages->currentWidget()->findChild<QLineEdit*>()->setText(QStringLiteral("UNATTENDED"));
    const auto* const index = pages->currentWidget()->findChild<QListWidget*>();
    QStringList shown;
    for (int row = 0; row < index->count(); ++row) {
        if (!index->item(row)->isHidden()) shown += index->item(row)->text();
    }
    EXPECT_EQ(shown, QStringList{QStringLiteral("unattended mapping")});
}

QStringList linesOf(const QListWidget& list) {
    QStringList lines;
    for (int row = 0; row < list.count(); ++row)
        lines += list.item(row)->text();
    return lines;
}

TEST_F(HelpWindowsTest, TheIndexIsInTheOrderOfReaders) {
    const HelpWindow& window = windowOf(open(HtmlHelpCommand::DisplayIndex));
    const auto* const page = window.findChild<QTabWidget*>()->currentWidget();
    const QStringList lines = linesOf(*page->findChild<QListWidget*>());
    QStringList inOrder = lines;
    inOrder.sort(Qt::CaseInsensitive);
    EXPECT_EQ(lines, inOrder);
}

TEST_F(HelpWindowsTest, EnterOpensTheOnlyMatch) {
    const HelpWindow& window = windowOf(open(HtmlHelpCommand::DisplayIndex));
    const auto* const pages = window.findChild<QTabWidget*>();
    auto* const box = pages->currentWidget()->findChild<QLineEdit*>();
    const auto* const index = pages->currentWidget()->findChild<QListWidget*>();
    box->setText(QStringLiteral("unattended map"));
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(window.topic(), QStringLiteral("command-line.html"));
    box->setText(QStringLiteral("e"));
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(window.topic(), QStringLiteral("command-line.html")) << "there are several";
    EXPECT_EQ(window.focusWidget(), index);

    open(HtmlHelpCommand::DisplaySearch, HelpSearchQuery{"aligns paragraph left"});
    EXPECT_EQ(window.topic(), QStringLiteral("keyboard.html"));
}

TEST_F(HelpWindowsTest, PicturesAreNoWiderThanTheTopic) {
    HelpWindow& window = windowOf(open(HtmlHelpCommand::DisplayTopic, std::string("window.html")));
    const auto* const browser = window.findChild<QTextBrowser*>();
    const auto widthOfTopic = [&] { return static_cast<int>(browser->document()->size().width()); };
    for (const int width : {1400, 600, 900}) {
        window.resize(width, 500);
        EXPECT_LE(widthOfTopic(), browser->viewport()->width()) << width;
    }
}

TEST_F(HelpWindowsTest, LinksAreFollowedAndTheWayBackIsKept) {
    const HelpWindow& window = windowOf(open(HtmlHelpCommand::DisplayTopic, std::string("start.html")));
    auto* const browser = window.findChild<QTextBrowser*>();
    Q_EMIT browser->anchorClicked(QUrl(QStringLiteral("first-template.html")));
    EXPECT_EQ(window.topic(), QStringLiteral("first-template.html"));
    EXPECT_THAT(browser->toPlainText().toStdString(), HasSubstr("Your first template"));
    Q_EMIT browser->anchorClicked(QUrl(QStringLiteral("file:///etc/passwd")));
    EXPECT_EQ(window.topic(), QStringLiteral("first-template.html"));
    browser->backward();
    EXPECT_EQ(window.topic(), QStringLiteral("start.html"));
}

TEST_F(HelpWindowsTest, AClosedWindowIsNoWindow) {
    const WindowHandle handle = open(HtmlHelpCommand::DisplayContents);
    EXPECT_TRUE(windows.isWindow(handle));
    EXPECT_FALSE(windows.isWindow(handle + 1));
    windows.closeWindow(handle);
    windows.runPendingEvents();
    EXPECT_FALSE(windows.isWindow(handle));
    EXPECT_NE(open(HtmlHelpCommand::DisplayContents), 0U);
}

TEST_F(HelpWindowsTest, AMissingFileIsTold) {
    EXPECT_EQ(open(HtmlHelpCommand::DisplayContents, {}, "/nowhere/a.chm"), 0U);
    EXPECT_EQ(messages.texts(), "The help file '/nowhere/a.chm' is not there.\n");
    EXPECT_NE(open(HtmlHelpCommand::Initialize), 0U);
}

}  // namespace
}  // namespace mergeloom
