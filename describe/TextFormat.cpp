#include "describe/TextFormat.h"

#include "base/Text.h"
#include "describe/FormatSections.h"

#include <algorithm>
#include <cstddef>
#include <cwctype>
#include <limits>
#include <vector>

namespace mergeloom::describe {

namespace {

constexpr std::string_view kTextSigns = "@&<>!";

/// Removes the first character and returns it, in capital letters for '>' and in small ones for '<'.
std::string takeCharacter(std::string_view& text, char letterCase) {
    std::string_view after = text;
    takeCodePoint(after);
    std::string character(text.substr(0, text.size() - after.size()));
    const std::u16string units = toUtf16(character);
    text = after;
    if (letterCase == '\0' || units.size() != 1) return character;
    const auto letter = static_cast<std::wint_t>(units.front());
    const auto changed = letterCase == '>' ? std::towupper(letter) : std::towlower(letter);
    return changed > std::numeric_limits<char16_t>::max()
               ? character
               : fromUtf16(std::u16string(1, static_cast<char16_t>(changed)));
}

/// The signs that apply to a whole section.
struct TextSection {
    explicit TextSection(const std::vector<FormatToken>& tokens) {
        for (const FormatToken& token : tokens) {
            if (token.isOneOf("<>")) letterCase = token.sign;
            if (token.sign == '!') isFromLeft = true;
            if (token.isOneOf("@&")) ++places;
            hasLiterals = hasLiterals || !token.literal.empty();
        }
    }

    char letterCase = '\0';
    bool isFromLeft = false;
    bool hasLiterals = false;
    std::size_t places = 0;
};

std::vector<std::string> charactersOf(std::string_view text, char letterCase) {
    std::vector<std::string> characters;
    while (!text.empty())
        characters.push_back(takeCharacter(text, letterCase));
    return characters;
}

/// Writes the characters into the places, from the last one on, or from the first one on if the section has
/// '!'. The outermost place gets the characters that remain.
std::string writtenText(const std::vector<FormatToken>& tokens, const std::vector<std::string>& characters,
                        const TextSection& section) {
    std::string text;
    const std::size_t count = characters.size();
    const std::size_t missing = section.places - std::min(count, section.places);
    std::size_t place = 0;
    std::size_t next = 0;
    for (const FormatToken& token : tokens) {
        text += token.literal;
        if (!token.isOneOf("@&")) continue;
        const bool hasCharacter = section.isFromLeft ? place < count : place >= missing;
        std::size_t taken = hasCharacter ? 1 : 0;
        const bool isOutermost = section.isFromLeft ? place + 1 == section.places : place == 0;
        if (isOutermost && count > section.places) taken += count - section.places;
        for (; taken > 0; --taken)
            text += characters[next++];
        if (!hasCharacter && token.sign == '@') text += ' ';
        ++place;
    }
    return text;
}

}  // namespace

std::optional<std::string> formattedText(std::string_view text, std::string_view format) {
    const std::vector<std::string_view> sections = formatSections(format);
    if (text.empty()) return sections.size() > 1 ? literalOf(sections[1]) : std::string();
    const std::optional<std::vector<FormatToken>> tokens = tokensOf(sections.front(), kTextSigns);
    if (!tokens) return std::nullopt;
    const TextSection section(*tokens);
    const std::vector<std::string> characters = charactersOf(text, section.letterCase);
    if (section.places > 0 || section.hasLiterals) return writtenText(*tokens, characters, section);
    std::string whole;
    for (const std::string& character : characters)
        whole += character;
    return whole;
}

}  // namespace mergeloom::describe
