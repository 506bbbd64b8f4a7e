#include "app/CommandLineText.h"

#include "app/CommandLineSwitches.h"
#include "base/Text.h"

#include <algorithm>
#include <array>

namespace mergeloom {

namespace {

/// The mark before the letter of a hidden character. It is hidden by itself as well, so that no text is lost.
constexpr char kMark = '\x1A';

struct HiddenCharacter {
    char character;
    char letter;
};

constexpr std::array kHiddenCharacters = {
    HiddenCharacter{'-', 'h'},  HiddenCharacter{'/', 's'}, HiddenCharacter{'"', 'q'},
    HiddenCharacter{'\'', 'a'}, HiddenCharacter{' ', 'b'}, HiddenCharacter{kMark, 'm'},
};

std::string hide(std::string_view value) {
    std::string hidden;
    for (const char character : value) {
        const auto isIt = [&](const HiddenCharacter& one) { return one.character == character; };
        const auto* const found = std::find_if(kHiddenCharacters.begin(), kHiddenCharacters.end(), isIt);
        if (found == kHiddenCharacters.end()) {
            hidden += character;
        } else {
            hidden += {kMark, found->letter};
        }
    }
    return hidden;
}

char characterOfLetter(char letter) {
    const auto isIt = [&](const HiddenCharacter& one) { return one.letter == letter; };
    return std::find_if(kHiddenCharacters.begin(), kHiddenCharacters.end(), isIt)->character;
}

/// Returns the length of the prefix and the switch's name at the beginning of an argument; 0 when it is a
/// value.
std::size_t switchLength(std::string_view argument) {
    if (!argument.starts_with('-') && !argument.starts_with('/')) return 0;
    for (const std::string_view name : split(kSwitchNames, ';')) {
        const std::string_view rest = argument.substr(1);
        if (!equalsIgnoringCase(rest.substr(0, name.size()), name)) continue;
        // "/fields.xml" is a path.
        const bool takesValue = argument.front() == '-';
        if (takesValue || rest.size() == name.size()) return 1 + name.size();
    }
    return 0;
}

void appendPiece(std::string& text, const std::string& piece) {
    if (!text.empty()) text += ' ';
    text += piece;
}

}  // namespace

CommandLineText CommandLineText::fromArguments(std::span<const std::string> arguments) {
    std::string hyphenSwitches;
    std::string slashSwitches;
    std::string* current = &hyphenSwitches;
    for (const std::string_view argument : arguments) {
        const std::size_t length = switchLength(argument);
        if (length > 0) current = argument.front() == '/' ? &slashSwitches : &hyphenSwitches;
        appendPiece(*current, std::string(argument.substr(0, length)) + hide(argument.substr(length)));
    }
    if (!slashSwitches.empty()) appendPiece(hyphenSwitches, slashSwitches);
    CommandLineText commandLine(std::move(hyphenSwitches));
    commandLine.hidesCharacters_ = true;
    return commandLine;
}

std::string CommandLineText::restore(std::string_view piece) const {
    if (!hidesCharacters_) return std::string(piece);
    std::string restored;
    for (std::size_t next = 0; next < piece.size(); ++next) {
        restored += piece[next] == kMark ? characterOfLetter(piece[++next]) : piece[next];
    }
    return restored;
}

}  // namespace mergeloom
