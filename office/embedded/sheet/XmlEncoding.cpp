#include "office/embedded/sheet/XmlEncoding.h"

#include "base/Text.h"
#include "office/opc/XmlPart.h"

#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// UTF-16, with a byte order mark or without: an element or a declaration begins with "<" and a zero byte.
bool isWide(std::string_view xml) {
    using namespace std::string_view_literals;
    for (const std::string_view beginning : {"\xFF\xFE"sv, "\xFE\xFF"sv, "<\0"sv, "\0<"sv}) {
        if (xml.starts_with(beginning)) return true;
    }
    return false;
}

/// What the XML declaration names; empty when it names none.
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

std::string toUtf8Xml(std::string xml, const std::string& partName, const std::string& fileName) {
    if (!isWide(xml) && !isLatin1(declaredEncoding(xml))) return xml;
    return opc::XmlPart::parse(std::move(xml), partName, fileName)->toXml();
}

}  // namespace mergeloom::embedded
