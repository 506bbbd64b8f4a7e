#include "office/opc/PackageXml.h"

#include "office/opc/UnreadableFile.h"

#include <algorithm>

namespace mergeloom::opc {

namespace {

bool hasDocumentType(const pugi::xml_document& document) {
    const auto isDocumentType = [](const pugi::xml_node& node) { return node.type() == pugi::node_doctype; };
    return std::any_of(document.begin(), document.end(), isDocumentType);
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

}  // namespace mergeloom::opc
