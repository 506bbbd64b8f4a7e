#pragma once

#include "base/Messages.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

/// Records the messages and answers the questions with the test's answers, one after the other, and with
/// Cancel after the last one.
class ScriptedMessages final : public Messages {
  public:
    MessageAnswer show(const Message& message) override {
        messages.push_back(message);
        if (whileShown) whileShown();
        if (message.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
        return next_ < answers.size() ? answers[next_++] : MessageAnswer::Cancel;
    }

    /// Returns the texts of the messages since the last call, one per line.
    std::string takeTexts() {
        std::string texts;
        for (const Message& message : std::exchange(messages, {}))
            texts += message.text + "\n";
        return texts;
    }

    std::vector<MessageAnswer> answers;
    std::function<void()> whileShown;  ///< called while a message is shown
    std::vector<Message> messages;

  private:
    std::size_t next_ = 0;
};

}  // namespace mergeloom
