#include "office/opc/EntryName.h"

#include "base/Text.h"
#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"

#include <algorithm>

namespace mergeloom::opc {

namespace {

// The upper half of code page 437.
constexpr std::u16string_view kCodePage437 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
    u"áíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
    u"αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
constexpr unsigned char kUpperHalf = 0x80;

std::string decodeCodePage437(std::string_view stored) {
    std::string name;
    for (const char character : stored) {
        const auto byte = static_cast<unsigned char>(character);
        appendCodePoint(name, byte < kUpperHalf ? byte : kCodePage437[byte - kUpperHalf]);
    }
    return name;
}

bool hasDriveLetter(std::string_view path) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    return path.size() >= 2 && path[1] == ':' && isLetter(path[0]);
}

bool isDots(std::string_view segment) {
    return segment == "." || segment == "..";
}

}  // namespace

std::string decodeEntryName(std::string_view stored, bool hasUtf8Flag) {
    if (hasUtf8Flag || isUtf8(stored)) return std::string(stored);
    return decodeCodePage437(stored);
}

bool isFolderName(std::string_view name) {
    return name.ends_with('/') || name.ends_with('\\');
}

std::string whyUnfitAsEntryName(std::string_view name) {
    if (name.empty()) return "an entry has no name";
    if (!isUtf8(name)) return "the name of the entry " + quoted(name) + " is not UTF-8";
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    if (std::any_of(name.begin(), name.end(), isControl)) {
        return "the name of the entry " + quoted(name) + " holds a control character";
    }
    // Looked at as a part's name would be looked up, so that no other spelling slips through.
    std::string path = percentDecoded(replaceAll(name, "\\", "/"));
    path = replaceAll(path, "\\", "/");
    if (path.starts_with('/') || hasDriveLetter(path)) {
        return "the entry " + quoted(name) + " has an absolute path";
    }
    if (isFolderName(path)) path.pop_back();
    for (const std::string_view segment : split(path, '/')) {
        if (isDots(segment)) return "the entry " + quoted(name) + " has a path with \".\" or \"..\"";
        if (segment.empty()) return "the entry " + quoted(name) + " has a path with an empty folder name";
    }
    return {};
}

}  // namespace mergeloom::opc
