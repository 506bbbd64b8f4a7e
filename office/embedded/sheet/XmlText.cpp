#include "office/embedded/sheet/XmlText.h"

#include "base/Text.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr std::size_t kEscapeSize = 7;  // _xHHHH_
constexpr std::size_t kMaxEntityLength = 32;
constexpr std::string_view kUnderscore = "_x005F_";

constexpr std::array<std::pair<std::string_view, char>, 5> kEntities{
    {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};

std::optional<char32_t> parseNumber(std::string_view digits, int base) {
    std::uint32_t number = 0;
    const char* end = digits.data() + digits.size();
    const std::from_chars_result result = std::from_chars(digits.data(), end, number, base);
    if (result.ec != std::errc() || result.ptr != end) return {};
    return number;
}

std::optional<char32_t> characterOf(std::string_view entity) {
    if (entity.starts_with("#x")) return parseNumber(entity.substr(2), 16);
    if (entity.starts_with('#')) return parseNumber(entity.substr(1), 10);
    const auto* found = std::ranges::find(kEntities, entity, &std::pair<std::string_view, char>::first);
    if (found == kEntities.end()) return {};
    return found->second;
}

/// Decodes the text that begins with "&"; an unknown entity stays as it is.
void decodeEntity(std::string_view& rest, std::string& text) {
    const std::size_t end = rest.substr(0, kMaxEntityLength).find(';');
    const std::optional<char32_t> character =
        end == std::string_view::npos ? std::nullopt : characterOf(rest.substr(1, end - 1));
    if (character) appendCodePoint(text, *character);
    if (!character) text += '&';
    rest.remove_prefix(character ? end + 1 : 1);
}

void decodeLineEnd(std::string_view& rest, std::string& text) {
    text += '\n';
    rest.remove_prefix(rest.starts_with("\r\n") ? 2 : 1);
}

/// Decodes the text that begins with "<", which is not an element but a comment, an instruction or CDATA.
void decodeMarkup(std::string_view& rest, std::string& text) {
    constexpr std::string_view kCdata = "<![CDATA[";
    const bool isCdata = rest.starts_with(kCdata);
    const std::string_view closing = isCdata ? "]]>" : rest.starts_with("<!--") ? "-->" : "?>";
    const std::size_t end = rest.find(closing);
    if (isCdata) text += replaceAll(rest.substr(kCdata.size(), end - kCdata.size()), "\r\n", "\n");
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + closing.size());
}

/// Returns the code unit of the escape at the beginning of a text.
std::optional<char16_t> escapeAt(std::string_view text) {
    if (text.size() < kEscapeSize || !text.starts_with("_x") || text[kEscapeSize - 1] != '_') return {};
    const std::optional<char32_t> unit = parseNumber(text.substr(2, 4), 16);
    if (!unit) return {};
    return static_cast<char16_t>(*unit);
}

bool mustEscape(char32_t character) {
    return (character < U' ' && character != U'\t' && character != U'\n') || character == 0xFFFE ||
           character == 0xFFFF;
}

/// Returns true if the beginning of a text would be read as an escape after the next character is written.
bool looksEscaped(std::string_view text) {
    if (escapeAt(text)) return true;
    if (text.size() < kEscapeSize || text.front() != '_') return false;
    std::string probe(text.substr(0, kEscapeSize - 1));
    return mustEscape(firstCodePoint(text.substr(probe.size()))) && escapeAt(probe += '_');
}

/// Returns true for a character that is never escaped and that no escape contains first, which most are.
bool isPlain(char character) {
    return (character >= ' ' && character < '\x7F' && character != '_') || character == '\n';
}

void appendEscape(std::string& text, char32_t character) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    text += "_x";
    for (const unsigned shift : {12U, 8U, 4U, 0U})
        text += kDigits[(character >> shift) & 0xFU];
    text += '_';
}

/// Returns true for UTF-16, with a byte order mark or without: an element or a declaration begins with "<"
/// and a zero byte.
bool isWide(std::string_view xml) {
    using namespace std::string_view_literals;
    for (const std::string_view beginning : {"\xFF\xFE"sv, "\xFE\xFF"sv, "<\0"sv, "\0<"sv}) {
        if (xml.starts_with(beginning)) return true;
    }
    return false;
}

/// Returns the encoding that the XML declaration names; empty if it names none.
std::string_view declaredEncoding(std::string_view xml) {
    if (!xml.starts_with("<?xml")) return {};
    const std::string_view declaration = xml.substr(0, xml.find("?>"));
    const std::size_t name = declaration.find("encoding");
    if (name == std::string_view::npos) return {};
    const std::size_t open = declaration.find_first_of("\"'", name);
    if (open == std::string_view::npos) return {};
    return declaration.substr(open + 1, declaration.find(declaration[open], open + 1) - open - 1);
}

bool isLatin1(std::string_view encoding) {
    return equalsIgnoringAsciiCase(encoding, "ISO-8859-1") || equalsIgnoringAsciiCase(encoding, "latin1");
}

}  // namespace

std::string decodeXml(std::string_view raw) {
    std::string text;
    text.reserve(raw.size());
    while (!raw.empty()) {
        const std::size_t plain = std::min(raw.find_first_of("&<\r"), raw.size());
        text += raw.substr(0, plain);
        raw.remove_prefix(plain);
        if (raw.starts_with('&')) decodeEntity(raw, text);
        if (raw.starts_with('<')) decodeMarkup(raw, text);
        if (raw.starts_with('\r')) decodeLineEnd(raw, text);
    }
    return text;
}

std::string escapeXml(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char character : text) {
        switch (character) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            default:
                escaped += character;
        }
    }
    return escaped;
}

std::string decodeXstring(std::string_view text) {
    if (text.find("_x") == std::string_view::npos) return std::string(text);
    std::string decoded;
    // Two escapes may be the halves of one character.
    std::u16string units;
    for (std::size_t i = 0; i < text.size();) {
        if (const std::optional<char16_t> unit = escapeAt(text.substr(i))) {
            units += *unit;
            i += kEscapeSize;
            continue;
        }
        decoded += fromUtf16(std::exchange(units, {}));
        decoded += text[i++];
    }
    return decoded + fromUtf16(units);
}

std::string encodeXstring(std::string_view text) {
    if (std::ranges::all_of(text, isPlain)) return std::string(text);
    std::string encoded;
    encoded.reserve(text.size());
    while (!text.empty()) {
        const bool isAmbiguous = looksEscaped(text);
        const char32_t character = takeCodePoint(text);
        if (isAmbiguous) {
            encoded += kUnderscore;
        } else if (mustEscape(character)) {
            appendEscape(encoded, character);
        } else {
            appendCodePoint(encoded, character);
        }
    }
    return encoded;
}

std::string richText(std::string_view element, std::string_view prefix) {
    std::string text;
    XmlScanner scanner(element);
    scanner.next();
    while (scanner.next()) {
        if (scanner.kind() != TagKind::Start || isElement(scanner.name(), prefix, "r")) continue;
        const std::string_view name = scanner.name();
        const std::size_t begin = scanner.end();
        scanner.skipElement();
        if (!isElement(name, prefix, "t")) continue;
        text += decodeXstring(decodeXml(element.substr(begin, scanner.begin() - begin)));
    }
    return text;
}

std::string toUtf8Xml(std::string xml, const std::string& partName, const std::string& fileName) {
    if (!isWide(xml) && !isLatin1(declaredEncoding(xml))) return xml;
    return opc::XmlPart::parse(std::move(xml), partName, fileName)->toXml();
}

}  // namespace mergeloom::embedded
