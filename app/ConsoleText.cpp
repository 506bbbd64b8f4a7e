#include "app/ConsoleText.h"

#include "base/Text.h"

#include <string>

namespace mergeloom {

namespace {

constexpr std::string_view kPrefix = "mergeloom: ";

}  // namespace

void writeConsoleText(std::ostream& stream, std::string_view text) {
    const std::string indentedBreak = "\n" + std::string(kPrefix.size(), ' ');
    const std::string lines = replaceAll(replaceAll(text, "\r\n", "\n"), "\r", "\n");
    stream << kPrefix << replaceAll(lines, "\n", indentedBreak) << std::endl;
}

}  // namespace mergeloom
