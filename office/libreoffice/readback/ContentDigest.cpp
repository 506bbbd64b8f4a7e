#include "office/libreoffice/readback/ContentDigest.h"

#include "base/Text.h"

namespace mergeloom::libreoffice {

namespace {

/// Returns true if a character is ignored: white space, hyphens that are elements in some formats, characters
/// without a width, and those of symbol fonts, which Word writes as elements.
bool isIgnored(char32_t character) {
    const bool isSpace = character <= U' ' || (character >= 0x2000 && character <= 0x200F);
    const bool isPrivate = character >= 0xE000 && character <= 0xF8FF;
    constexpr std::u32string_view kOthers = U"\u00A0\u00AD\u2011\u2028\u2029\u202F\uFEFF";
    return isSpace || isPrivate || kOthers.find(character) != std::u32string_view::npos;
}

}  // namespace

void DigestedStory::add(std::string_view text) {
    while (!text.empty()) {
        const char32_t character = takeCodePoint(text);
        if (!isIgnored(character)) appendCodePoint(text_, character);
    }
}

void DigestedStory::beginPlace(const std::string& identifier, const std::string& name) {
    starts_[identifier] = {name, text_.size()};
}

void DigestedStory::endPlace(const std::string& identifier) {
    const auto start = starts_.find(identifier);
    if (start == starts_.end()) return;
    digest_.places[start->second.name] = text_.substr(start->second.at);
    starts_.erase(start);
}

}  // namespace mergeloom::libreoffice
