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
using testing::Not;

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
    /// Reports the error, requests its report and returns the saved text.
    std::string savedReportOf(ErrorDialog&& dialog, const ErrorReport& error) {
        const ModalUser user({[](QWidget& window) {
                                  buttonOf(window, "btnReport")->click();
                                  dynamic_cast<QDialog&>(window).accept();
                              },
                              [](QWidget& window) { window.close(); }});
        dialog.report(error);
        return savedReport();
    }
    [[nodiscard]] std::string savedReport() const {
        std::string text;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            text += folder.bytesOf(entry.path().filename().string());
        return text;
    }

    TemporaryFolder folder;
    std::string logged;
};

TEST_F(ErrorDialogTest, ShowsTheErrorAndSavesNothingUnasked) {
    const ModalUser user({[](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Mergeloom"));
        for (const char* text :
             {"5941", "The <bookmark> is gone.", "frmMain", "Form_Load", "ui/designer/frmMain.cpp:7"})
            EXPECT_THAT(textsOf(window), HasSubstr(text));
        QTest::keyClick(&window, Qt::Key_Return);
    }});
    make("", folder.path()).report(kError);
    EXPECT_EQ(folder.entryCount(), 0);
    EXPECT_EQ(logged,
              "Error 5941 in frmMain.Form_Load (ui/designer/frmMain.cpp:7): The <bookmark> is gone. "
              "(Bookmark Name = 'a')\n");
}

TEST_F(ErrorDialogTest, SavesAReportOnRequest) {
    const std::string report = savedReportOf(make("", folder.path()), kError);
    EXPECT_EQ(folder.entryCount(), 1);
    EXPECT_THAT(report, HasSubstr("\nOffice: Office 7.4\n"));
    EXPECT_THAT(report, HasSubstr("\nError number: 5941\n"));
    EXPECT_THAT(report, HasSubstr("\nPlace: ui/designer/frmMain.cpp:7\n"));
}

TEST_F(ErrorDialogTest, AnErrorThatTheUserCanChangeIsAPlainMessage) {
    const std::string sentence = "The file '<a>.docx' could not be read: it is protected by a password.";
    const ModalUser user({[&](QWidget& window) {
        EXPECT_THAT(textsOf(window), HasSubstr(sentence));
        EXPECT_THAT(textsOf(window), Not(HasSubstr("Form_Load")));
        EXPECT_EQ(buttonOf(window, "btnReport"), nullptr);
        QTest::keyClick(&window, Qt::Key_Return);
    }});
    make("", folder.path()).report({kFileCouldNotBeRead, sentence, "", "frmMain", "Form_Load"});
    EXPECT_THAT(logged, HasSubstr(sentence));
}

TEST_F(ErrorDialogTest, TheReportIsReadBeforeItIsSent) {
    const ModalUser user({[](QWidget& window) {
                              QTest::mouseClick(buttonOf(window, "btnReport"), Qt::LeftButton);
                              dynamic_cast<QDialog&>(window).accept();
                          },
                          [this](QWidget& window) {
                              const auto* text = window.findChild<QPlainTextEdit*>();
                              ASSERT_NE(text, nullptr);
                              EXPECT_EQ(text->toPlainText().toStdString(), savedReport());
                              EXPECT_TRUE(text->isReadOnly());
                              EXPECT_THAT(textsOf(window), HasSubstr(folder.path()));
                              EXPECT_NE(buttonOf(window, "btnMail"), nullptr);
                              QTest::keyClick(&window, Qt::Key_Escape);
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
    const ErrorReport error{1, description, "", "frmMain", "Form_Load"};
    make("", folder.path()).report(error);
    EXPECT_THAT(savedReportOf(make("", folder.path()), error),
                HasSubstr("\nDescription: " + description + "\n"));
}

TEST_F(ErrorDialogTest, AnOfficeThatFailsIsUnknown) {
    const std::string report = savedReportOf(
        ErrorDialog(nullptr, {.officeBuild = []() -> std::string { throw AutomationError(70, "gone"); },
                              .supportAddress = "",
                              .reportFolder = folder.path()}),
        kError);
    EXPECT_THAT(report, HasSubstr("\nOffice: unknown\n"));
}

}  // namespace
}  // namespace mergeloom
