#pragma once

#include "base/Messages.h"

#include <string>
#include <vector>

namespace mergeloom {

/// Records the messages and answers every question with the given answer.
class RecordingMessages final : public Messages {
  public:
    MessageAnswer show(const Message& message) override {
        messages.push_back(message);
        if (message.buttons == MessageButtons::YesNo) return yesNoAnswer;
        return message.buttons == MessageButtons::OkCancel ? okCancelAnswer : defaultAnswer(message.buttons);
    }

    /// Returns the texts of the messages, one per line.
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
