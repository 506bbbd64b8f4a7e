#include "app/mCommandLine.h"

#include "app/modMain.h"
#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <optional>

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

constexpr char kSeparator = ';';

/// Returns the rest of the line after a switch's name; none when the switch is absent. The first prefix that
/// is found decides, even when another one comes earlier in the line.
std::optional<std::string_view> restAfterSwitch(std::string_view line, std::string_view name) {
    for (const std::string_view prefix : split(kSwitchPrefixes, kSeparator)) {
        const std::string written = std::string(prefix).append(name);
        const std::size_t found = findIgnoringAsciiCase(line, written);
        if (found != std::string_view::npos) return line.substr(found + written.size());
    }
    return std::nullopt;
}

/// Returns the end of the value at the beginning of the rest. Only the first occurrence of each prefix
/// counts, and quotes do not protect from the last prefix; existing command lines depend on both.
std::size_t endOfValue(std::string_view rest) {
    const std::vector<std::string_view> prefixes = split(kSwitchPrefixes, kSeparator);
    for (const std::string_view& prefix : prefixes) {
        const std::size_t found = findIgnoringAsciiCase(rest, std::string(1, ' ').append(prefix));
        if (found == std::string_view::npos) continue;
        if (&prefix == &prefixes.back() || !IsInsideQuotes(rest, found)) return found;
    }
    return rest.size();
}

/// Returns the length of the argument at the beginning of a command line of Windows.
std::size_t argumentLength(std::string_view line) {
    bool isQuoted = false;
    std::size_t backslashes = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char character = line[at];
        if (character == '"' && backslashes % 2 == 0) isQuoted = !isQuoted;
        if (!isQuoted && (character == ' ' || character == '\t')) return at;
        backslashes = character == '\\' ? backslashes + 1 : 0;
    }
    return line.size();
}

std::string valueIn(std::string_view rest) {
    const std::string_view written = trimBlanks(rest.substr(0, endOfValue(rest)));
    const std::string unquoted = TrimCharacter(written, "\"", TrimMode::Both);
    const std::string_view value = trimBlanks(unquoted);
    return std::string(value.empty() ? kEmptyValue : value);
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

std::string_view afterArguments(std::string_view commandLine, std::size_t count) {
    constexpr std::string_view kBlanks = " \t";
    const auto skipBlanks = [&] {
        commandLine.remove_prefix(std::min(commandLine.find_first_not_of(kBlanks), commandLine.size()));
    };
    skipBlanks();
    for (; count > 0 && !commandLine.empty(); --count) {
        commandLine.remove_prefix(argumentLength(commandLine));
        skipBlanks();
    }
    return commandLine;
}

std::vector<std::string> gCommandLineArguments;

void GetCommandLineArguments(const CommandLineText& commandLine, std::string& rstrCommandLine) {
    rstrCommandLine = commandLine.restore(commandLine.text());
    const std::vector<std::string_view> names = split(kSwitchNames, kSeparator);
    gCommandLineArguments.assign(names.size(), {});
    for (std::size_t index = 0; index < names.size(); ++index) {
        const auto rest = restAfterSwitch(commandLine.text(), names[index]);
        if (rest) gCommandLineArguments[index] = commandLine.restore(valueIn(*rest));
    }
}

std::string GetCommandLineArgument(std::int32_t vlngIndex) {
    if (vlngIndex < 0) return {};
    const auto index = static_cast<std::size_t>(vlngIndex);
    return index < gCommandLineArguments.size() ? gCommandLineArguments[index] : std::string();
}

std::string commandLineFile(std::int32_t index) {
    const std::string file = GetCommandLineArgument(index);
    return file.empty() || file == kEmptyValue ? std::string() : fullPath(file);
}

}  // namespace mergeloom
