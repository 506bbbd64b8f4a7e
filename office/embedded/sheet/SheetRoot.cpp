#include "office/embedded/sheet/SheetRoot.h"

#include "base/Text.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kTransitional = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
constexpr std::string_view kStrict = "http://purl.oclc.org/ooxml/spreadsheetml/main";
constexpr std::string_view kDeclaration = "xmlns:";

std::string declarationOf(std::string_view prefix) {
    return std::string(kDeclaration).append(prefix);
}

std::string ownNamespace(const XmlTag& tag) {
    const std::string_view prefix = tag.prefix();
    const std::string attribute =
        prefix.empty() ? "xmlns" : declarationOf(prefix.substr(0, prefix.size() - 1));
    return decodeXml(findAttribute(tag.attributes(), attribute).value_or(""));
}

}  // namespace

SheetRoot::SheetRoot(std::string_view tag) : tag_(tag) {
    const std::string uri = ownNamespace(tag_);
    isStrict_ = uri == kStrict;
    if (!isStrict_ && uri != kTransitional) throw BadXml("is no worksheet");
}

std::string SheetRoot::prefixFor(std::string_view uri) const {
    XmlAttributes attribute(tag_.attributes());
    while (attribute.next()) {
        if (!attribute.name().starts_with(kDeclaration) || decodeXml(attribute.value()) != uri) continue;
        return std::string(attribute.name().substr(kDeclaration.size()));
    }
    return {};
}

std::string SheetRoot::freePrefix(std::string_view preferred) const {
    std::string prefix(preferred);
    for (int number = 1; findAttribute(tag_.attributes(), declarationOf(prefix)); ++number)
        prefix = std::string(preferred) + std::to_string(number);
    return prefix;
}

void SheetRoot::declare(const std::string& prefix, const std::string& uri) {
    tag_.set(declarationOf(prefix), replaceAll(escapeXml(uri), "\"", "&quot;"));
    ++declared_;
}

void SheetRoot::takeBack(const std::string& prefix) {
    tag_.remove(declarationOf(prefix));
    --declared_;
}

}  // namespace mergeloom::embedded
