#include "doubles/RecordingHtmlHelp.h"
#include "ui/help/clsHtmlHelpForForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class Form final : public QWidget {
  public:
    Form() {
        auto* const pane = new QWidget;
        pane->setProperty(kHelpTopicProperty, QStringLiteral("tree.html"));
        auto* const paneLayout = new QVBoxLayout(pane);
        for (QLineEdit* const box : {search, list}) {
            paneLayout->addWidget(box);
        }
        search->setProperty(kHelpTopicProperty, QStringLiteral("search.html"));
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(pane);
        layout->addWidget(other);
        layout->addWidget(button);
    }

    void closeEvent(QCloseEvent* event) override { event->setAccepted(mayClose); }

    bool mayClose = true;
    QLineEdit* search = new QLineEdit;
    QLineEdit* list = new QLineEdit;
    QLineEdit* other = new QLineEdit;
    QPushButton* button = new QPushButton;
};

class clsHtmlHelpForFormTest : public testing::Test {
  protected:
    clsHtmlHelpForFormTest() {
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        control.takeCalls();
    }

    RecordingHtmlHelp control;
    Form form;
    clsHtmlHelpForForm help{form, *form.button, "", "/opt/own.chm", control};
};

TEST_F(clsHtmlHelpForFormTest, F1OpensTheTopicOfTheFocus) {
    struct Case {
        QWidget* focus;
        const char* call;
    };
    for (const Case& item : {Case{form.search, "0 topic search.html"}, Case{form.list, "0 topic tree.html"},
                             Case{form.other, "1 0"}}) {
        item.focus->setFocus();
        QTest::keyClick(item.focus, Qt::Key_F2);
        QTest::keyClick(item.focus, Qt::Key_F1);
        EXPECT_THAT(control.takeCalls(), ElementsAre(EndsWith(item.call)));
    }
    form.list->setFocus();
    QTest::mouseClick(form.button, Qt::LeftButton);
    EXPECT_TRUE(form.button->hasFocus());
    EXPECT_THAT(control.takeCalls(), ElementsAre(EndsWith("/opt/own.chm 0 topic tree.html")));
    form.setProperty(kHelpTopicProperty, QStringLiteral("window.html"));
    form.other->setFocus();
    form.button->click();
    EXPECT_THAT(control.takeCalls(), ElementsAre(EndsWith("/opt/own.chm 0 topic window.html")));
}

TEST_F(clsHtmlHelpForFormTest, AnOwnFileComesBeforeTheProgramsOwn) {
    RecordingHtmlHelp another;
    form.other->setFocus();
    const clsHtmlHelpForForm special(form, *form.button, "/srv/special.chm", "/opt/own.chm", another);
    form.button->click();
    EXPECT_THAT(another.calls, ElementsAre("0  28 0", EndsWith(" /srv/special.chm 1 0")));
}

TEST_F(clsHtmlHelpForFormTest, ClosingTheFormClosesItsHelp) {
    form.button->click();
    control.takeCalls();
    form.mayClose = false;
    form.close();
    EXPECT_THAT(control.calls, IsEmpty());
    form.mayClose = true;
    form.close();
    EXPECT_THAT(control.takeCalls(), ElementsAre("close 5", "events"));
    help.mfrm_QueryUnload();
    EXPECT_THAT(control.calls, IsEmpty());
}

}  // namespace
}  // namespace mergeloom
