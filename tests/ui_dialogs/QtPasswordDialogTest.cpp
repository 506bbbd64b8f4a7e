#include "doubles/ModalUser.h"
#include "ui/dialogs/QtPasswordDialog.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace mergeloom {
namespace {

QLineEdit& entryOf(QWidget& window) {
    return *window.findChild<QLineEdit*>(QStringLiteral("password"));
}

TEST(QtPasswordDialog, ReturnGivesWhatWasTyped) {
    const ModalUser user({[](QWidget& window) {
        EXPECT_EQ(entryOf(window).echoMode(), QLineEdit::Password);
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_TRUE(window.isVisible()) << "an empty password opens nothing";
        QTest::keyClicks(&entryOf(window), QStringLiteral("Geheim "));
        entryOf(window).insert(QStringLiteral("ä€"));
        QTest::keyClick(&entryOf(window), Qt::Key_Return);
    }});
    EXPECT_EQ(QtPasswordDialog(nullptr).ask("/a/secret.docx", PasswordAttempt::First), "Geheim ä€");
}

TEST(QtPasswordDialog, EscapeGivesNoneEvenAfterTyping) {
    const ModalUser user({[](QWidget& window) {
        QTest::keyClicks(&entryOf(window), QStringLiteral("typed"));
        QTest::keyClick(&window, Qt::Key_Escape);
    }});
    EXPECT_EQ(QtPasswordDialog(nullptr).ask("/a/secret.docx", PasswordAttempt::First), std::nullopt);
}

TEST(QtPasswordDialog, NamesTheFileAndTellsAWrongPassword) {
    const std::pair<PasswordAttempt, QString> cases[] = {
        {PasswordAttempt::First, QStringLiteral("“<b>.docx” is protected by a password.")},
        {PasswordAttempt::Again, QStringLiteral("This is not the password of “<b>.docx”. Passwords differ in "
                                                "capital and small letters.")}};
    for (const auto& [attempt, sentence] : cases) {
        const ModalUser user({[&](QWidget& window) {
            const QLabel* const label = window.findChild<QLabel*>();
            EXPECT_EQ(label->text(), sentence);
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            window.close();
        }});
        EXPECT_EQ(QtPasswordDialog(nullptr).ask("/a/<b>.docx", attempt), std::nullopt);
    }
}

}  // namespace
}  // namespace mergeloom
