#include "doubles/ModalUser.h"
#include "doubles/TemporaryFolder.h"
#include "ui/dialogs/ErrorDialog.h"

#include <gmock/gmock.h>

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

namespace mergeloom {
namespace {

using testing::HasSubstr;

const ErrorReport kError{5941,        "The <bookmark> is gone.",  "Bookmark Name = 'a'", "frmMain",
                         "Form_Load", "ui/designer/frmMain.cpp:7"};

QPushButton* buttonOf(QWidget& window, const char* name) {
    return window.findChild<QPushButton*>(QLatin1String(name));
}

std::string textsOf(const QWidget& window) {
    std::string texts;
    for (const QLabel* label : window.findChildren<QLabel*>())
        texts += label->text().toStdString() + "\n";
    return texts;
}

class ErrorDialogTest : public testing::Test {
  protected:
    ErrorDialog make(const std::string& address, const std::string& reportFolder) {
        return ErrorDialog(nullptr, {.officeBuild = [] { return std::string("Office 7.4"); },
                                     .log = [this](const std::string& line) { logged += line + "\n"; },
                                     .supportAddress = address,
                                     .reportFolder = reportFolder});
    }
    [[nodiscard]] std::string keptReport() const {
        std::string text;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            text += folder.bytesOf(entry.path().filename().string());
        return text;
    }

    TemporaryFolder folder;
    std::string logged;
};

TEST_F(ErrorDialogTest, ShowsTheErrorAndKeepsAReport) {
    const ModalUser user({[](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Mergeloom"));
        for (const char* text :
             {"5941", "The <bookmark> is gone.", "frmMain", "Form_Load", "ui/designer/frmMain.cpp:7"})
            EXPECT_THAT(textsOf(window), HasSubstr(text));
        QTest::keyClick(&window, Qt::Key_Return);
    }});
    make("", folder.path()).report(kError);
    EXPECT_EQ(folder.entryCount(), 1);
    EXPECT_THAT(keptReport(), HasSubstr("\nOffice: Office 7.4\n"));
    EXPECT_THAT(keptReport(), HasSubstr("\nError number: 5941\n"));
    EXPECT_THAT(keptReport(), HasSubstr("\nPlace: ui/designer/frmMain.cpp:7\n"));
    EXPECT_EQ(logged,
              "Error 5941 in frmMain.Form_Load (ui/designer/frmMain.cpp:7): The <bookmark> is gone. "
              "(Bookmark Name = 'a')\n");
}

TEST_F(ErrorDialogTest, TheReportIsReadBeforeItIsSent) {
    const ModalUser user({[](QWidget& window) {
                              QTest::mouseClick(buttonOf(window, "btnReport"), Qt::LeftButton);
                              dynamic_cast<QDialog&>(window).accept();
                          },
                          [this](QWidget& window) {
                              const auto* text = window.findChild<QPlainTextEdit*>();
                              ASSERT_NE(text, nullptr);
                              EXPECT_EQ(text->toPlainText().toStdString(), keptReport());
                              EXPECT_TRUE(text->isReadOnly());
                              EXPECT_THAT(textsOf(window), HasSubstr(folder.path()));
                              EXPECT_NE(buttonOf(window, "btnMail"), nullptr);
                              QTest::keyClick(&window, Qt::Key_Escape);
                          }});
    make("help@example.org", folder.path()).report(kError);
}

TEST_F(ErrorDialogTest, WithoutAnAddressThereIsNoMail) {
    const ModalUser user({[](QWidget& window) {
                              buttonOf(window, "btnReport")->click();
                              dynamic_cast<QDialog&>(window).accept();
                          },
                          [](QWidget& window) {
                              EXPECT_EQ(buttonOf(window, "btnMail"), nullptr);
                              window.close();
                          }});
    make("", folder.path()).report(kError);
}

TEST_F(ErrorDialogTest, AReportThatCannotBeKeptIsStillShown) {
    folder.put("taken", "");
    const ModalUser user({[](QWidget& window) {
                              buttonOf(window, "btnReport")->click();
                              dynamic_cast<QDialog&>(window).accept();
                          },
                          [](QWidget& window) {
                              EXPECT_THAT(textsOf(window), HasSubstr("could not be saved"));
                              window.close();
                          }});
    make("", folder / "taken").report(kError);
    EXPECT_EQ(folder.entryCount(), 1);
}

TEST_F(ErrorDialogTest, ALongDescriptionIsWholeInTheReport) {
    const ModalUser user({[](QWidget& window) {
        EXPECT_LT(window.height(), 768);
        window.close();
    }});
    const std::string description(20000, 'x');
    make("", folder.path()).report({1, description, "", "frmMain", "Form_Load"});
    EXPECT_THAT(keptReport(), HasSubstr("\nDescription: " + description + "\n"));
}

TEST_F(ErrorDialogTest, AnOfficeThatFailsIsUnknown) {
    const ModalUser user({[](QWidget& window) { window.close(); }});
    ErrorDialog(nullptr, {.officeBuild = []() -> std::string { throw AutomationError(70, "gone"); },
                          .supportAddress = "",
                          .reportFolder = folder.path()})
        .report(kError);
    EXPECT_THAT(keptReport(), HasSubstr("\nOffice: unknown\n"));
}

}  // namespace
}  // namespace mergeloom
