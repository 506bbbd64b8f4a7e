#pragma once

#include <string>

namespace mergeloom {

enum class MessageIcon { None, Exclamation, Question, Information, Critical };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// The button of the Return key. Cancel is meant for questions about a loss of data.
enum class DefaultButton { First, Cancel };

/// A message box: its text, its icon and its buttons.
struct Message {
    std::string text;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
    DefaultButton preferred = DefaultButton::First;
};

/// Returns the first button, which is the answer when no user is present.
constexpr MessageAnswer defaultAnswer(MessageButtons buttons) {
    const bool yesIsFirst = buttons == MessageButtons::YesNo || buttons == MessageButtons::YesNoCancel;
    return yesIsFirst ? MessageAnswer::Yes : MessageAnswer::Ok;
}

/// Returns the message's default button.
constexpr MessageAnswer defaultAnswer(const Message& message) {
    return message.preferred == DefaultButton::Cancel ? MessageAnswer::Cancel
                                                      : defaultAnswer(message.buttons);
}

/// Shows messages and questions to the user: as message boxes in the designer, as lines on standard error in
/// an unattended run.
class Messages {
  public:
    Messages() = default;
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;
    virtual ~Messages() = default;

    virtual MessageAnswer show(const Message& message) = 0;
};

}  // namespace mergeloom
