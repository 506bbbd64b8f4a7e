#include "app/ConsoleMessages.h"

#include "app/ConsoleText.h"

namespace mergeloom {

MessageAnswer ConsoleMessages::show(const Message& message) {
    const MessageAnswer answer = defaultAnswer(message.buttons);
    const bool isQuestion = message.buttons != MessageButtons::Ok;
    const std::string button = answer == MessageAnswer::Yes ? " [Yes]" : " [OK]";
    writeConsoleText(stream_, isQuestion ? message.text + button : message.text);
    return answer;
}

}  // namespace mergeloom
