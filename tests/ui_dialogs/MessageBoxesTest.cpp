#include "doubles/ModalUser.h"
#include "ui/dialogs/MessageBoxes.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QtTest>
#include <future>

namespace mergeloom {
namespace {

MessageAnswer answerByKey(MessageButtons buttons, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    const ModalUser user({[=](QWidget& box) { QTest::keyClick(&box, key, modifiers); }});
    return MessageBoxes(nullptr).show({"Really?", MessageIcon::Question, buttons});
}

TEST(MessageBoxes, EveryKeyHasItsAnswer) {
    struct Case {
        MessageButtons buttons;
        MessageAnswer atReturn;
        MessageAnswer atEscape;
    };
    const Case cases[] = {{MessageButtons::Ok, MessageAnswer::Ok, MessageAnswer::Ok},
                          {MessageButtons::OkCancel, MessageAnswer::Ok, MessageAnswer::Cancel},
                          {MessageButtons::YesNo, MessageAnswer::Yes, MessageAnswer::No},
                          {MessageButtons::YesNoCancel, MessageAnswer::Yes, MessageAnswer::Cancel}};
    for (const Case& row : cases) {
        SCOPED_TRACE(static_cast<int>(row.buttons));
        EXPECT_EQ(answerByKey(row.buttons, Qt::Key_Return), row.atReturn);
        EXPECT_EQ(answerByKey(row.buttons, Qt::Key_Escape), row.atEscape);
    }
    EXPECT_EQ(answerByKey(MessageButtons::YesNoCancel, Qt::Key_N, Qt::AltModifier), MessageAnswer::No);
}

TEST(MessageBoxes, TheWindowsCloseButtonIsTheEscapeKey) {
    const ModalUser user({[](QWidget& box) { box.close(); }});
    EXPECT_EQ(MessageBoxes(nullptr).show({"Really?", MessageIcon::Question, MessageButtons::YesNo}),
              MessageAnswer::No);
}

TEST(MessageBoxes, WhatTheyShow) {
    const std::pair<MessageIcon, QMessageBox::Icon> icons[] = {
        {MessageIcon::None, QMessageBox::NoIcon},
        {MessageIcon::Exclamation, QMessageBox::Warning},
        {MessageIcon::Question, QMessageBox::Question},
        {MessageIcon::Information, QMessageBox::Information},
        {MessageIcon::Critical, QMessageBox::Critical}};
    for (const auto& [icon, expected] : icons) {
        const ModalUser user({[expected = expected](QWidget& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            EXPECT_EQ(box.icon(), expected);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Mergeloom"));
            EXPECT_EQ(box.text(), QStringLiteral("<b>a & b</b>"));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            box.accept();
        }});
        MessageBoxes(nullptr).show({"<b>a & b</b>", icon, MessageButtons::Ok});
    }
}

TEST(MessageBoxes, AnotherThreadWaitsForTheAnswer) {
    const ModalUser user({[](QWidget& box) {
        EXPECT_EQ(box.thread(), qApp->thread());
        QTest::keyClick(&box, Qt::Key_Escape);
    }});
    auto answer = std::async(std::launch::async, [] {
        return MessageBoxes(nullptr).show({"Really?", MessageIcon::Question, MessageButtons::OkCancel});
    });
    while (answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        QTest::qWait(5);
    EXPECT_EQ(answer.get(), MessageAnswer::Cancel);
}

}  // namespace
}  // namespace mergeloom
