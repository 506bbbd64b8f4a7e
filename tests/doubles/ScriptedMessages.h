#pragma once

#include "base/Messages.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

/// Keeps what is shown and answers the questions with the answers that a test gives, one after the other,
/// then with Cancel.
class ScriptedMessages final : public Messages {
  public:
    MessageAnswer show(const Message& message) override {
        messages.push_back(message);
        if (whileShown) whileShown();
        if (message.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
        return next_ < answers.size() ? answers[next_++] : MessageAnswer::Cancel;
    }

    /// The texts of the messages so far, a line each, which are forgotten then.
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
