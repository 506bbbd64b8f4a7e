#include "base/ConsoleOutput.h"

#include "base/Text.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace mergeloom {

namespace {

/// Returns the number as it is commonly written: in hexadecimal digits for automation errors, in decimal ones
/// for all others.
std::string numberText(ErrorNumber number) {
    if (number < kAutomationErrorBase) return std::to_string(number);
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << number;
    return text.str();
}

/// Replaces the characters that a terminal would obey; lines and tabs stay.
std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const char32_t letter = takeCodePoint(text);
        const bool isShown = letter == U'\n' || letter == U'\t' || !isControlCharacter(letter);
        appendCodePoint(result, isShown ? letter : U'\uFFFD');
    }
    return result;
}

constexpr const char* kEraseToEndOfLine = "\x1b[K";

}  // namespace

void writeConsoleText(std::ostream& stream, std::string_view text, std::string_view program) {
    const std::string prefix = std::string(program) + ": ";
    const std::string indentedBreak = "\n" + std::string(prefix.size(), ' ');
    const std::string lines = printable(replaceAll(replaceAll(text, "\r\n", "\n"), "\r", "\n"));
    stream << prefix << replaceAll(lines, "\n", indentedBreak) << std::endl;
}

MessageAnswer ConsoleMessages::show(const Message& message) {
    const MessageAnswer answer = defaultAnswer(message);
    const bool isQuestion = message.buttons != MessageButtons::Ok;
    const std::string button = answer == MessageAnswer::Yes ? " [Yes]" : " [OK]";
    writeConsoleText(stream_, isQuestion ? message.text + button : message.text);
    return answer;
}

void ConsoleErrorHandler::report(const ErrorReport& report) {
    std::string text = "error " + numberText(report.number) + ": " + report.description;
    if (!report.comment.empty()) text += "\n" + report.comment;
    text += "\nin " + shownProcedure(report);
    writeConsoleText(stream_, text);
}

ConsoleProgress::~ConsoleProgress() {
    if (isShown_) terminal_ << kEraseToEndOfLine << std::flush;
}

void ConsoleProgress::advance(std::int64_t done, std::int64_t total) {
    const Clock::time_point now = Clock::now();
    if (now < next_) return;
    next_ = now + kPause;
    isShown_ = true;
    // The cursor goes back to the line's start, so that a message in between does not continue this line.
    terminal_ << text(done, total) << kEraseToEndOfLine << "\r" << std::flush;
}

std::string ConsoleProgress::text(std::int64_t done, std::int64_t total) const {
    return std::to_string(done) + " of " + std::to_string(total) + " done";
}

std::string ConsoleRecordProgress::text(std::int64_t done, std::int64_t total) const {
    const auto taken = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start_);
    return recordProgress(done, total, taken.count());
}

std::string recordProgress(std::int64_t done, std::int64_t total, std::int64_t milliseconds) {
    const std::int64_t rate = done * 1000 / std::max<std::int64_t>(1, milliseconds);
    const std::int64_t left = (total - done) / std::max<std::int64_t>(1, rate);
    return std::to_string(done) + " of " + std::to_string(total) + " records, " + std::to_string(rate) +
           " a second, " + std::to_string(left) + " s left";
}

}  // namespace mergeloom
