#include "office/opc/XmlPart.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/opc/UnreadableFile.h"

#include <algorithm>
#include <utility>

namespace mergeloom::opc {

namespace {

bool hasDocumentType(const pugi::xml_document& document) {
    const auto isDocumentType = [](const pugi::xml_node& node) { return node.type() == pugi::node_doctype; };
    return std::any_of(document.begin(), document.end(), isDocumentType);
}

constexpr int kMaxDepth = 1000;

constexpr unsigned kParseFlags = pugi::parse_full | pugi::parse_ws_pcdata;

bool isDeeperThan(pugi::xml_node root, int limit) {
    int depth = 0;
    for (pugi::xml_node node = root; node;) {
        if (node.first_child()) {
            node = node.first_child();
            if (++depth > limit) return true;
            continue;
        }
        while (node && node != root && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        node = node == root ? pugi::xml_node() : node.next_sibling();
    }
    return false;
}

int countOf(const pugi::xml_document& document, pugi::xml_node_type type) {
    int count = 0;
    for (const pugi::xml_node node : document.children())
        count += node.type() == type ? 1 : 0;
    return count;
}

/// Makes the declaration state UTF-8, in which every part is written. "utf-8" is kept as it is.
void declareUtf8(pugi::xml_document& document) {
    pugi::xml_attribute encoding = document.first_child().attribute("encoding");
    if (document.first_child().type() != pugi::node_declaration || !encoding) return;
    if (!equalsIgnoringAsciiCase(encoding.value(), "UTF-8")) encoding.set_value("UTF-8");
}

[[noreturn]] void refuse(const std::string& fileName, const std::string& partName, const std::string& what) {
    throw AutomationError(kFileCouldNotBeRead,
                          "The file '" + fileName + "' is damaged: its part " + partName + " " + what + ".");
}

}  // namespace

void parsePackageXml(pugi::xml_document& document, std::string_view xml, const std::string& rootName,
                     const std::string& partName, const std::string& fileName) {
    const pugi::xml_parse_result result = document.load_buffer(xml.data(), xml.size(), pugi::parse_full);
    if (!result) {
        raiseUnreadable(fileName, "its part " + quoted(partName) + " is malformed: " + result.description());
    }
    if (hasDocumentType(document)) {
        raiseUnreadable(fileName, "its part " + quoted(partName) + " has a document type declaration");
    }
    if (localName(document.document_element()) != rootName) {
        raiseUnreadable(fileName,
                        "its part " + quoted(partName) + " has no root element " + quoted(rootName));
    }
}

std::string packageXmlText(pugi::xml_document& document) {
    const pugi::xml_node declaration = document.first_child();
    if (declaration.type() == pugi::node_declaration) {
        pugi::xml_attribute encoding = declaration.attribute("encoding");
        if (encoding) encoding.set_value("UTF-8");
    }
    std::string text;
    StringWriter writer(text);
    const unsigned int flags = pugi::format_raw | pugi::format_no_declaration;
    document.save(writer, "", flags, pugi::encoding_utf8);
    return text;
}

std::string_view localName(const pugi::xml_node& element) {
    const std::string_view name = element.name();
    return name.substr(name.find(':') + 1);
}

pugi::xml_node appendLike(pugi::xml_node root, const std::string& name) {
    const std::string_view rootName = root.name();
    const std::size_t prefixLength = rootName.find(':') + 1;
    return root.append_child((std::string(rootName.substr(0, prefixLength)) + name).c_str());
}

std::unique_ptr<XmlPart> XmlPart::parse(std::string xml, const std::string& partName,
                                        const std::string& fileName) {
    std::unique_ptr<XmlPart> part(new XmlPart);
    part->partName_ = partName;
    part->source_ = std::move(xml);
    const pugi::xml_parse_result result =
        part->document_.load_buffer_inplace(part->source_.data(), part->source_.size(), kParseFlags);
    if (!result) {
        refuse(fileName, partName,
               "is not well-formed XML (" + std::string(result.description()) + " at byte " +
                   std::to_string(result.offset) + ")");
    }
    if (countOf(part->document_, pugi::node_doctype) > 0) {
        refuse(fileName, partName, "carries a document type definition");
    }
    if (countOf(part->document_, pugi::node_element) > 1) {
        refuse(fileName, partName, "is not well-formed XML (more than one root element)");
    }
    if (isDeeperThan(part->root(), kMaxDepth)) refuse(fileName, partName, "nests its elements too deep");
    declareUtf8(part->document_);
    part->detachedNodes_ = part->document_.append_child("detached");
    return part;
}

std::string XmlPart::toXml(std::size_t expectedSize) const {
    std::string xml;
    xml.reserve(std::max(source_.size(), expectedSize));
    StringWriter writer(xml);
    constexpr unsigned kFormat = pugi::format_raw | pugi::format_no_declaration;
    for (const pugi::xml_node node : document_.children()) {
        if (node == detachedNodes_) continue;
        node.print(writer, "", kFormat);
        if (node.type() == pugi::node_declaration) xml += '\n';
    }
    return xml;
}

}  // namespace mergeloom::opc
