#include "ui/dialogs/FileFilters.h"

#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>
#include <string_view>

namespace mergeloom {

namespace {

constexpr std::size_t kMaxExtensionLength = 5;

bool isAsciiDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

std::string extensionOfPattern(const std::string& pattern) {
    if (!pattern.starts_with("*.")) return {};
    const std::string extension = pattern.substr(2);
    const bool isPlain = extension.find_first_of("*?[") == std::string::npos;
    return isPlain ? extension : std::string();
}

std::vector<std::string> parsePatterns(std::string_view text) {
    std::vector<std::string> patterns;
    for (const std::string_view part : split(text, ';')) {
        const std::string pattern(trimBlanks(part));
        if (!pattern.empty()) patterns.push_back(pattern == "*.*" ? "*" : pattern);
    }
    return patterns;
}

FileFilter makeFilter(const std::string& description, const std::string& patterns) {
    const std::string shown = " (" + patterns + ")";
    const bool showsPatterns = description.ends_with(shown);
    const std::size_t length = description.size() - (showsPatterns ? shown.size() : 0);
    return {description.substr(0, length), parsePatterns(patterns), showsPatterns};
}

}  // namespace

std::vector<FileFilter> parseFileFilters(const std::string& filter) {
    std::vector<FileFilter> filters;
    const std::vector<std::string_view> parts = split(filter, '\0');
    for (std::size_t i = 0; i + 1 < parts.size() && !parts[i].empty(); i += 2)
        filters.push_back(makeFilter(std::string(parts[i]), std::string(parts[i + 1])));
    return filters;
}

std::string extensionOf(const FileFilter& filter) {
    return filter.patterns.empty() ? std::string() : extensionOfPattern(filter.patterns.front());
}

bool hasExtension(const std::string& fileName, const FileFilter& filter) {
    const std::string found = extension(fileName);
    if (found.empty()) return false;
    const auto names = [&](const std::string& pattern) {
        return equalsIgnoringCase(extensionOfPattern(pattern), found);
    };
    if (std::ranges::any_of(filter.patterns, names)) return true;
    const auto isPlain = [](char letter) { return isAsciiLetter(letter) || isAsciiDigit(letter); };
    return found.size() <= kMaxExtensionLength && std::ranges::all_of(found, isPlain) &&
           std::ranges::any_of(found, isAsciiLetter);
}

}  // namespace mergeloom
