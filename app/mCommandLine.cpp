#include "app/mCommandLine.h"

#include "app/modMainText.h"
#include "base/Text.h"

#include <optional>

namespace mergeloom {

std::vector<std::string> gCommandLineArguments;

namespace {

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

std::string valueIn(std::string_view rest) {
    const std::string_view written = trimBlanks(rest.substr(0, endOfValue(rest)));
    const std::string unquoted = TrimCharacter(written, "\"", TrimMode::Both);
    const std::string_view value = trimBlanks(unquoted);
    return std::string(value.empty() ? kEmptyValue : value);
}

}  // namespace

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

}  // namespace mergeloom
