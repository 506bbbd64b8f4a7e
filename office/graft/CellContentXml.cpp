#include "office/graft/CellContentXml.h"

#include "office/embedded/sheet/XmlText.h"

#include <string_view>

namespace mergeloom::graft {

namespace {

/// Returns true for a boolean constant, which Calc writes as a formula.
bool isTruthValue(const ExportedCell& cell) {
    return cell.type == "b" && (cell.formula == "TRUE()" || cell.formula == "FALSE()");
}

std::string element(const embedded::SheetPart& target, std::string_view name, std::string_view content) {
    const std::string ownName = target.elementName(name);
    return "<" + ownName + ">" + embedded::escapeXml(content) + "</" + ownName + ">";
}

std::string escapedValue(std::string_view value) {
    std::string text = embedded::escapeXml(value);
    for (std::size_t at = text.find('"'); at != std::string::npos; at = text.find('"', at + 1))
        text.replace(at, 1, "&quot;");
    return text;
}

/// Copies an element of a text, whose names have no prefix.
void appendCopy(std::string& xml, pugi::xml_node node, const embedded::SheetPart& target) {
    if (node.type() != pugi::node_element) {
        xml += embedded::escapeXml(node.value());
        return;
    }
    const std::string name = target.elementName(node.name());
    xml += "<" + name;
    for (const pugi::xml_attribute attribute : node.attributes())
        xml.append(" ").append(attribute.name()).append("=\"").append(escapedValue(attribute.value())) += '"';
    xml += ">";
    for (const pugi::xml_node child : node.children())
        appendCopy(xml, child, target);
    xml += "</" + name + ">";
}

}  // namespace

std::optional<std::string> plainText(const ExportedCell& cell) {
    if (cell.hasFormula() || cell.type != "s") return {};
    const pugi::xml_node first = cell.text.first_child();
    const bool isPlain = !first || (std::string_view(first.name()) == "t" && !first.next_sibling());
    if (!isPlain) return {};
    return embedded::decodeXstring(first.child_value());
}

embedded::CellContent contentOf(const ExportedCell& cell, const embedded::SheetPart& target) {
    if (cell.isEmpty()) return {};
    if (!cell.hasFormula() && cell.text) {
        std::string xml = "<" + target.elementName("is") + ">";
        for (const pugi::xml_node child : cell.text.children())
            appendCopy(xml, child, target);
        return {"inlineStr", xml + "</" + target.elementName("is") + ">"};
    }
    embedded::CellContent content = resultOf(cell, target);
    if (cell.hasFormula() && !isTruthValue(cell)) content.xml.insert(0, element(target, "f", cell.formula));
    return content;
}

embedded::CellContent resultOf(const ExportedCell& cell, const embedded::SheetPart& target) {
    return {cell.type == "n" ? std::string() : std::string(cell.type), element(target, "v", cell.value)};
}

}  // namespace mergeloom::graft
