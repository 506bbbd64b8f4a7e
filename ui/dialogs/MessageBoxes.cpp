#include "ui/dialogs/MessageBoxes.h"

#include "ui/dialogs/DialogOwner.h"
#include "ui/services/GuiThread.h"

#include <QMessageBox>

namespace mergeloom {

namespace {

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None:
            return QMessageBox::NoIcon;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

struct Buttons {
    QMessageBox::StandardButtons all;
    QMessageBox::StandardButton atEscape;
};

Buttons buttonsOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok:
            return {QMessageBox::Ok, QMessageBox::Ok};
        case MessageButtons::OkCancel:
            return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel};
        case MessageButtons::YesNo:
            return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
        case MessageButtons::YesNoCancel:
            return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel};
    }
    return {QMessageBox::Ok, QMessageBox::Ok};
}

QMessageBox::StandardButton defaultOf(const Message& message) {
    const MessageAnswer answer = defaultAnswer(message);
    if (answer == MessageAnswer::Cancel) return QMessageBox::Cancel;
    return answer == MessageAnswer::Yes ? QMessageBox::Yes : QMessageBox::Ok;
}

MessageAnswer answerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return MessageAnswer::Yes;
        case QMessageBox::No:
            return MessageAnswer::No;
        case QMessageBox::Cancel:
            return MessageAnswer::Cancel;
        default:
            return MessageAnswer::Ok;
    }
}

MessageAnswer ask(QWidget* owner, const Message& message) {
    const Buttons buttons = buttonsOf(message.buttons);
    QMessageBox box(iconOf(message.icon), QStringLiteral("Mergeloom"), QString::fromStdString(message.text),
                    buttons.all, ownerOfDialog(owner));
    // A path or a name may look like markup.
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setDefaultButton(defaultOf(message));
    box.setEscapeButton(buttons.atEscape);
    return answerOf(box.exec());
}

}  // namespace

MessageAnswer MessageBoxes::show(const Message& message) {
    MessageAnswer answer = defaultAnswer(message);
    callOnGuiThread([&] { answer = ask(owner_, message); });
    return answer;
}

}  // namespace mergeloom
