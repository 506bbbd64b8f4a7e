#include "app/ConsoleErrorHandler.h"

#include "app/ConsoleText.h"

#include <sstream>

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

}  // namespace

void ConsoleErrorHandler::report(const ErrorReport& report) {
    std::string text = "error " + numberText(report.number) + ": " + report.description;
    if (!report.comment.empty()) text += "\n" + report.comment;
    text += "\nin " + shownProcedure(report);
    writeConsoleText(stream_, text);
}

}  // namespace mergeloom
