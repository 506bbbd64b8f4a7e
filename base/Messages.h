#pragma once

#include <string>

namespace mergeloom {

enum class MessageIcon { None, Exclamation, Question, Information, Critical };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// A message box: its text, what it looks like and what can be answered.
struct Message {
    std::string text;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
};

/// The first button, the one that answers where no user is there to choose.
constexpr MessageAnswer defaultAnswer(MessageButtons buttons) {
    const bool yesIsFirst = buttons == MessageButtons::YesNo || buttons == MessageButtons::YesNoCancel;
    return yesIsFirst ? MessageAnswer::Yes : MessageAnswer::Ok;
}

/// Where the program tells and asks its user: message boxes in the designer, lines on standard error in an
/// unattended run.
class Messages {
  public:
    Messages() = default;
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;
    virtual ~Messages() = default;

    virtual MessageAnswer show(const Message& message) = 0;
};

}  // namespace mergeloom
