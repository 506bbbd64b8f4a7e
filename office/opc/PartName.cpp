#include "office/opc/PartName.h"

#include "base/Text.h"
#include "office/opc/UnreadableFile.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace mergeloom::opc {

namespace {

constexpr std::string_view kRelationshipsFolder = "_rels/";
constexpr std::string_view kRelationshipsExtension = ".rels";
constexpr std::string_view kPlainInTarget = "-._~!$&'()*+,;=:@/%";
constexpr std::size_t kEscapeLength = 3;

/// Returns the byte that "%hh" at the start of a text encodes; -1 if there is no such escape.
int escapedByte(std::string_view text) {
    if (text.size() < kEscapeLength || text[0] != '%') return -1;
    int byte = 0;
    const char* const end = text.data() + kEscapeLength;
    const auto parsed = std::from_chars(text.data() + 1, end, byte, 16);
    const bool whole = parsed.ec == std::errc() && parsed.ptr == end;
    return whole && byte >= 0 ? byte : -1;
}

bool isAsciiLetterOrDigit(char c) {
    return isAsciiLetter(c) || (c >= '0' && c <= '9');
}

std::string withoutDotSegments(std::string_view path) {
    std::vector<std::string_view> kept;
    for (const std::string_view segment : split(path, '/')) {
        if (segment == "..") {
            if (!kept.empty()) kept.pop_back();
        } else if (!segment.empty() && segment != ".") {
            kept.push_back(segment);
        }
    }
    std::string result;
    for (const std::string_view segment : kept)
        result.append("/").append(segment);
    return result.empty() ? std::string(kPackageItself) : result;
}

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
    return path.size() >= 2 && path[1] == ':' && isAsciiLetter(path[0]);
}

bool isDots(std::string_view segment) {
    return segment == "." || segment == "..";
}

}  // namespace

std::string percentEncoded(std::string_view text, std::string_view plain) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string encoded;
    for (const char character : text) {
        if (isAsciiLetterOrDigit(character) || plain.find(character) != std::string_view::npos) {
            encoded += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        encoded += {'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
    }
    return encoded;
}

std::string percentDecoded(std::string_view text) {
    std::string decoded;
    while (!text.empty()) {
        const int byte = escapedByte(text);
        decoded += byte < 0 ? text[0] : static_cast<char>(byte);
        text.remove_prefix(byte < 0 ? 1 : kEscapeLength);
    }
    return decoded;
}

std::string partNameOfEntry(std::string_view entryName) {
    return "/" + replaceAll(entryName, "\\", "/");
}

std::string entryNameOfPart(std::string_view partName) {
    return std::string(partName.starts_with('/') ? partName.substr(1) : partName);
}

std::string partKey(std::string_view partName) {
    std::string name = foldCase(percentDecoded(replaceAll(partName, "\\", "/")));
    return name.starts_with('/') ? name : "/" + name;
}

std::string_view folderOf(std::string_view partName) {
    return partName.substr(0, partName.rfind('/') + 1);
}

std::string_view extensionOf(std::string_view partName) {
    const std::string_view name = partName.substr(folderOf(partName).size());
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

std::string relationshipsPartOf(std::string_view partName) {
    const std::string name = partName.starts_with('/') ? std::string(partName) : "/" + std::string(partName);
    const std::string_view folder = folderOf(name);
    std::string result(folder);
    return result.append(kRelationshipsFolder).append(name, folder.size()).append(kRelationshipsExtension);
}

bool isRelationshipsPart(std::string_view partName) {
    const std::string key = partKey(partName);
    return key.ends_with(kRelationshipsExtension) && folderOf(key).ends_with("/_rels/");
}

std::string resolveTarget(std::string_view sourcePart, std::string_view target) {
    const std::string path = replaceAll(target.substr(0, target.find('#')), "\\", "/");
    if (path.empty()) return std::string(sourcePart);
    if (path.starts_with('/')) return withoutDotSegments(path);
    return withoutDotSegments(std::string(folderOf(sourcePart)) + path);
}

std::string targetFrom(std::string_view sourcePart, std::string_view partName) {
    const std::string_view folder = folderOf(sourcePart);
    if (!partName.starts_with(folder)) return percentEncoded(partName, kPlainInTarget);
    const std::string relative = percentEncoded(partName.substr(folder.size()), kPlainInTarget);
    // The first segment of a relative target must not look like a scheme (RFC 3986, 4.2).
    return relative.find(':') == std::string::npos ? relative : percentEncoded(partName, kPlainInTarget);
}

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
    // The name is decoded as in the search for a part, so that no other spelling of it passes.
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
