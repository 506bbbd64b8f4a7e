#include "app/TemplateNames.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mergeloom {

namespace {

constexpr std::string_view kReplacementText = "_";
constexpr std::string_view kRefusedByWindows = R"(<>:"/\|?*)";
/// Anything longer after a "." is part of the name.
constexpr std::size_t kMaxExtensionLength = 32;
constexpr char32_t kNoCharacter = 0xFFFD;

bool isRefused(char32_t letter) {
    if (isControlCharacter(letter) || letter == kNoCharacter) return true;
    return letter < 0x80 && kRefusedByWindows.find(static_cast<char>(letter)) != std::string_view::npos;
}

std::string withoutRefused(std::string_view name) {
    std::string result;
    while (!name.empty()) {
        const char32_t letter = takeCodePoint(name);
        if (isRefused(letter)) {
            result += kReplacementText;
        } else {
            appendCodePoint(result, letter);
        }
    }
    return result;
}

/// Windows drops dots and blanks at a name's end, so two names would be one file.
void trimEnd(std::string& name) {
    name.erase(name.find_last_not_of(". ") + 1);
}

bool isPort(std::string_view name) {
    if (!name.starts_with("COM") && !name.starts_with("LPT")) return false;
    constexpr std::array<std::string_view, 12> kNumbers = {"1", "2", "3", "4", "5", "6",
                                                           "7", "8", "9", "¹", "²", "³"};
    return std::ranges::find(kNumbers, name.substr(3)) != kNumbers.end();
}

/// The devices of Windows, which it recognises before any extension and in any letter case.
bool isReserved(std::string_view stem) {
    constexpr std::array<std::string_view, 6> kDevices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    std::string name(trimBlanks(stem));
    std::ranges::transform(name, name.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return isPort(name) || std::ranges::find(kDevices, name) != kDevices.end();
}

/// The first bytes of a text, as many as make whole characters.
std::string_view firstBytes(std::string_view text, std::size_t count) {
    std::string_view rest = text;
    std::size_t taken = 0;
    while (!rest.empty()) {
        takeCodePoint(rest);
        if (text.size() - rest.size() > count) break;
        taken = text.size() - rest.size();
    }
    return text.substr(0, taken);
}

std::string shortened(const std::string& name, std::size_t longest) {
    if (name.size() <= longest) return name;
    const std::size_t dot = name.rfind('.');
    const bool hasExtension = dot != std::string::npos && name.size() - dot <= kMaxExtensionLength;
    const std::string extension = hasExtension ? name.substr(dot) : std::string();
    return std::string(firstBytes(name, longest - extension.size())) + extension;
}

std::string fileName(const std::string& object, const std::string& end) {
    return validFileName(object, kMaxFileNameLength - end.size()) + end;
}

}  // namespace

std::string validFileName(const std::string& name, std::size_t longest) {
    std::string result = withoutRefused(name);
    trimEnd(result);
    const std::string stem = result.substr(0, result.find('.'));
    if (isReserved(stem)) result.insert(stem.size(), kReplacementText);
    result = shortened(result, longest);
    trimEnd(result);
    return result.empty() ? std::string(kReplacementText) : result;
}

std::string TemplateNames::nameFor(const std::string& object) {
    std::string name = fileName(object, extension_);
    std::size_t& number = numbers_.try_emplace(foldCase(name), 1).first->second;
    while (!take(name))
        name = fileName(object, "_" + std::to_string(++number) + extension_);
    return name;
}

bool TemplateNames::take(const std::string& name) {
    return taken_.insert(foldCase(name)).second;
}

}  // namespace mergeloom
