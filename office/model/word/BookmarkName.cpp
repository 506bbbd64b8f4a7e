#include "office/model/word/BookmarkName.h"

#include "base/AutomationError.h"

namespace mergeloom::word {

namespace {

constexpr ErrorNumber kBadBookmarkName = 5828;

}  // namespace

bool isBookmarkName(std::string_view name) {
    if (name.empty() || isDigit(firstCodePoint(name))) return false;
    CharacterCount length;
    for (; !name.empty(); ++length.value) {  // each of these characters takes one unit
        if (!isBookmarkCharacter(takeCodePoint(name))) return false;
    }
    return length <= kMaxBookmarkName;
}

void checkBookmarkName(const std::string& name) {
    if (!isBookmarkName(name)) throw AutomationError(kBadBookmarkName, "'" + name + "' is no bookmark name.");
}

}  // namespace mergeloom::word
