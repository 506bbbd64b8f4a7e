#include "office/opc/UnreadableFile.h"

#include "base/AutomationError.h"
#include "base/Text.h"

namespace mergeloom::opc {

namespace {

constexpr std::int64_t kMaxNameLength = 200;
constexpr char32_t kFirstPrintable = U' ';

}  // namespace

void raiseUnreadable(const std::string& fileName, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeRead,
                          "The file \"" + fileName + "\" could not be read: " + reason + ".");
}

std::string quoted(std::string_view name) {
    std::string text = "\"";
    std::string_view rest = firstCharacters(name, {kMaxNameLength});
    const bool cut = rest.size() < name.size();
    while (!rest.empty()) {
        const char32_t codePoint = takeCodePoint(rest);
        appendCodePoint(text, codePoint < kFirstPrintable ? U'?' : codePoint);
    }
    return text + (cut ? "...\"" : "\"");
}

}  // namespace mergeloom::opc
