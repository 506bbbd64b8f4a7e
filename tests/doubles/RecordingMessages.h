#pragma once

#include "base/Messages.h"

#include <string>
#include <vector>

namespace mergeloom {

/// Keeps what is shown and answers every question as it is told.
class RecordingMessages final : public Messages {
  public:
    MessageAnswer show(const Message& message) override {
        messages.push_back(message);
        if (message.buttons == MessageButtons::YesNo) return yesNoAnswer;
        return message.buttons == MessageButtons::OkCancel ? okCancelAnswer : defaultAnswer(message.buttons);
    }

    /// The texts of the messages, a line each.
    [[nodiscard]] std::string texts() const {
        std::string result;
        for (const Message& message : messages)
            result += message.text + "\n";
        return result;
    }

    MessageAnswer yesNoAnswer = MessageAnswer::Yes;
    MessageAnswer okCancelAnswer = MessageAnswer::Ok;
    std::vector<Message> messages;
};

}  // namespace mergeloom
