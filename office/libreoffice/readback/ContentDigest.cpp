#include "office/libreoffice/readback/ContentDigest.h"

#include "base/Text.h"

#include <algorithm>

namespace mergeloom::libreoffice {

namespace {

constexpr std::size_t kShownLength = 40;
constexpr std::size_t kMaxNameLength = 40;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Returns whether a character is ignored: white space, hyphens that are elements in some formats, characters
/// without a width, and those of symbol fonts, which Word writes as elements.
bool isIgnored(char32_t character) {
    const bool isSpace = character <= U' ' || (character >= 0x2000 && character <= 0x200F);
    const bool isPrivate = character >= 0xE000 && character <= 0xF8FF;
    constexpr std::u32string_view kOthers = U"\u00A0\u00AD\u2011\u2028\u2029\u202F\uFEFF";
    return isSpace || isPrivate || kOthers.find(character) != std::u32string_view::npos;
}

/// Returns whether a format keeps the name of a bookmark; others are changed, or are the office's own.
bool isKeptName(std::string_view name) {
    const auto isPlain = [](char byte) {
        return byte == '_' || static_cast<unsigned char>(byte) >= 0x80 || (byte >= '0' && byte <= '9') ||
               (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    };
    return !name.empty() && name.size() <= kMaxNameLength && name[0] != '_' &&
           std::ranges::all_of(name, isPlain);
}

std::string shown(std::string_view text, std::size_t from) {
    while (from > 0 && from < text.size() && isContinuation(text[from]))
        --from;
    std::size_t end = std::min(text.size(), from + kShownLength);
    while (end < text.size() && isContinuation(text[end]))
        ++end;
    return "\"" + std::string(text.substr(from, end - from)) + (end < text.size() ? "…\"" : "\"");
}

std::string differenceOfTexts(std::string_view expected, std::string_view written) {
    const auto [there, here] = std::ranges::mismatch(expected, written);
    const auto from = static_cast<std::size_t>(there - expected.begin());
    return shown(written, from) + " instead of " + shown(expected, from);
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

std::string difference(const ContentDigest& expected, const ContentDigest& written) {
    for (const auto& [name, text] : expected.places) {
        if (!isKeptName(name)) continue;
        const auto found = written.places.find(name);
        if (found == written.places.end()) return "the place '" + name + "' is missing in it";
        if (found->second != text)
            return "the place '" + name + "' holds " + differenceOfTexts(text, found->second);
    }
    if (expected.text == written.text) return {};
    return "its text has " + differenceOfTexts(expected.text, written.text);
}

}  // namespace mergeloom::libreoffice
