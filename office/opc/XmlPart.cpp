#include "office/opc/XmlPart.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/opc/PackageXml.h"

#include <utility>

namespace mergeloom::opc {

namespace {

constexpr int kDeepest = 1000;

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

/// A part is written as UTF-8 whatever it was read from, and has to say so.
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
    if (isDeeperThan(part->root(), kDeepest)) refuse(fileName, partName, "nests its elements too deep");
    declareUtf8(part->document_);
    part->attic_ = part->document_.append_child("attic");
    return part;
}

std::string XmlPart::toXml() const {
    std::string xml;
    xml.reserve(source_.size());
    StringWriter writer(xml);
    constexpr unsigned kFormat = pugi::format_raw | pugi::format_no_declaration;
    for (const pugi::xml_node node : document_.children()) {
        if (node == attic_) continue;
        node.print(writer, "", kFormat);
        if (node.type() == pugi::node_declaration) xml += '\n';
    }
    return xml;
}

}  // namespace mergeloom::opc
