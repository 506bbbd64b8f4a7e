#include "office/model/word/BookmarkName.h"

#include "base/AutomationError.h"

namespace mergeloom::word {

namespace {

constexpr ErrorNumber kBadBookmarkName = 5828;

}  // namespace

bool isBookmarkName(std::string_view name) {
    if (name.empty() || utf16Length(name) > kMaxBookmarkName || isDigit(firstCodePoint(name))) return false;
    while (!name.empty()) {
        if (!isBookmarkCharacter(takeCodePoint(name))) return false;
    }
    return true;
}

void checkBookmarkName(const std::string& name) {
    if (!isBookmarkName(name)) throw AutomationError(kBadBookmarkName, "'" + name + "' is no bookmark name.");
}

}  // namespace mergeloom::word
