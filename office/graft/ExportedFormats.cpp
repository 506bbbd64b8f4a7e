#include "office/graft/ExportedFormats.h"

#include <map>
#include <string_view>

namespace mergeloom::graft {

namespace {

using Nodes = std::vector<pugi::xml_node>;

Nodes itemsOf(pugi::xml_node root, const char* list) {
    Nodes items;
    for (const pugi::xml_node child : root.child(list).children())
        if (child.type() == pugi::node_element) items.push_back(child);
    return items;
}

pugi::xml_node itemAt(const Nodes& nodes, pugi::xml_attribute index) {
    return index.as_uint() < nodes.size() ? nodes[index.as_uint()] : pugi::xml_node();
}

/// The lists of a styles part.
struct StyleLists {
    explicit StyleLists(pugi::xml_node root)
        : fonts(itemsOf(root, "fonts")), fills(itemsOf(root, "fills")), borders(itemsOf(root, "borders")) {
        for (const pugi::xml_node format : root.child("numFmts").children())
            codes[format.attribute("numFmtId").value()] = format.attribute("formatCode").value();
    }

    [[nodiscard]] std::string codeOf(const std::string& id) const {
        const auto found = codes.find(id);
        return found == codes.end() ? kNumberFormatId + id : found->second;
    }

    Nodes fonts;
    Nodes fills;
    Nodes borders;
    std::map<std::string, std::string> codes;
};

ExportedFormat readFormat(pugi::xml_node node, const StyleLists& lists, FormatNumbers& numbers) {
    ExportedFormat format{lists.codeOf(node.attribute("numFmtId").value()),
                          itemAt(lists.fonts, node.attribute("fontId")),
                          itemAt(lists.fills, node.attribute("fillId")),
                          itemAt(lists.borders, node.attribute("borderId")),
                          node.child("alignment"),
                          node.child("protection")};
    std::string all = format.numberFormat;
    for (const pugi::xml_node part :
         {format.font, format.fill, format.border, format.alignment, format.protection})
        all += "\n" + plainXml().of(part);
    format.number = numbers.of(all);
    return format;
}

}  // namespace

ExportedFormats::ExportedFormats(opc::Package& package, FormatNumbers& numbers) {
    const std::string name = package.relatedPart(package.mainPart(), "styles");
    if (!name.empty()) {
        part_ = opc::XmlPart::parse(package.readPart(name), name, package.fileName());
        const pugi::xml_node root = part_->root();
        const StyleLists lists(root);
        for (const pugi::xml_node node : itemsOf(root, "cellXfs"))
            formats_.push_back(readFormat(node, lists, numbers));
        for (const pugi::xml_node node : itemsOf(root, "dxfs"))
            differentials_.push_back(plainXml().of(node));
    }
    if (formats_.empty()) formats_.emplace_back();
}

const ExportedFormat& ExportedFormats::at(int index) const {
    const auto position = static_cast<std::size_t>(index);
    return index >= 0 && position < formats_.size() ? formats_[position] : formats_.front();
}

std::string ExportedFormats::differential(std::size_t index) const {
    return index < differentials_.size() ? differentials_[index] : std::string();
}

}  // namespace mergeloom::graft
