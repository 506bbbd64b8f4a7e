#include "office/embedded/sheet/CellXml.h"

#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\r";

constexpr std::array<std::pair<std::string_view, CellType>, 6> kTypes{{{"s", CellType::SharedText},
                                                                       {"inlineStr", CellType::InlineText},
                                                                       {"str", CellType::FormulaText},
                                                                       {"b", CellType::Boolean},
                                                                       {"e", CellType::Error},
                                                                       {"d", CellType::Date}}};

CellType typeOf(std::string_view attributes) {
    const std::string_view type = findAttribute(attributes, "t").value_or("n");
    const auto* found = std::ranges::find(kTypes, type, &std::pair<std::string_view, CellType>::first);
    return found == kTypes.end() ? CellType::Number : found->second;
}

std::optional<excel::CellArea> arrayAreaOf(std::string_view formulaAttributes) {
    const std::string_view type = findAttribute(formulaAttributes, "t").value_or("");
    if (type != "array" && type != "dataTable") return {};
    return excel::parseArea(findAttribute(formulaAttributes, "ref").value_or(""));
}

void readChild(XmlScanner& scanner, std::string_view cell, std::string_view prefix, CellXml& parts) {
    const std::string_view name = scanner.name();
    const std::string_view attributes = scanner.attributes();
    const std::size_t contentBegin = scanner.end();
    const std::string_view element = scanner.takeElement();
    const std::string_view content =
        scanner.kind() == TagKind::Empty ? "" : cell.substr(contentBegin, scanner.begin() - contentBegin);
    if (isElement(name, prefix, "v")) parts.value = content;
    if (isElement(name, prefix, "is")) parts.inlineText = element;
    if (isElement(name, prefix, "extLst")) parts.extensions = element;
    if (!isElement(name, prefix, "f")) return;
    parts.formula = element;
    parts.formulaAttributes = attributes;
    parts.formulaText = content;
}

/// White space at either end is lost unless the element asks for its preservation.
bool needsPreserve(std::string_view text) {
    return !text.empty() && (kWhiteSpace.find(text.front()) != std::string_view::npos ||
                             kWhiteSpace.find(text.back()) != std::string_view::npos);
}

std::string assembled(XmlTag& tag, const std::string& type, const std::string& content,
                      const CellXml& former) {
    if (!type.empty()) tag.set("t", type);
    if (content.empty() && former.extensions.empty()) return tag.emptyTag();
    std::string xml = tag.startTag() + content;
    return xml.append(former.extensions).append(tag.endTag());
}

}  // namespace

CellXml splitCell(std::string_view cell, std::string_view prefix) {
    CellXml parts;
    XmlScanner scanner(cell);
    scanner.next();
    parts.tag = scanner.tag();
    parts.attributes = scanner.attributes();
    scanner.forEachChild([&] { readChild(scanner, cell, prefix, parts); });
    return parts;
}

StoredCell readCell(std::string_view cell, std::string_view prefix) {
    const CellXml parts = splitCell(cell, prefix);
    StoredCell stored;
    stored.type = typeOf(parts.attributes);
    stored.style = findNumber(parts.attributes, "s").value_or(0);
    stored.formula = decodeXstring(decodeXml(parts.formulaText));
    stored.arrayArea = arrayAreaOf(parts.formulaAttributes);
    if (stored.type == CellType::InlineText) {
        stored.value = richText(parts.inlineText, prefix);
        return stored;
    }
    stored.value = decodeXml(parts.value);
    if (stored.type == CellType::FormulaText) stored.value = decodeXstring(stored.value);
    if (stored.value.empty() && stored.type != CellType::FormulaText) stored.type = CellType::Empty;
    return stored;
}

std::string inlineTextXml(std::string_view text, const std::string& prefix) {
    const std::string tag = needsPreserve(text) ? "t xml:space=\"preserve\">" : "t>";
    return "<" + prefix + "is><" + prefix + tag + escapeXml(encodeXstring(text)) + "</" + prefix + "t></" +
           prefix + "is>";
}

std::string withText(std::string_view cell, std::string_view text, std::string_view prefix) {
    return withContent(cell, "inlineStr", inlineTextXml(text, std::string(prefix)), prefix);
}

std::string withContent(std::string_view cell, const std::string& type, const std::string& content,
                        std::string_view prefix) {
    const CellXml parts = splitCell(cell, prefix);
    XmlTag tag(parts.tag);
    // Metadata describes the content that is replaced.
    for (const std::string_view name : {"t", "cm", "vm"})
        tag.remove(name);
    return assembled(tag, type, content, parts);
}

std::string withResult(std::string_view cell, const std::string& type, const std::string& value,
                       std::string_view prefix) {
    const CellXml parts = splitCell(cell, prefix);
    XmlTag tag(parts.tag);
    tag.remove("t");
    return assembled(tag, type, std::string(parts.formula) + value, parts);
}

std::string withStyle(std::string_view cell, int style) {
    XmlScanner scanner(cell);
    scanner.next();
    XmlTag tag(scanner.tag());
    tag.set("s", std::to_string(style));
    const bool isEmpty = scanner.kind() == TagKind::Empty;
    return (isEmpty ? tag.emptyTag() : tag.startTag()).append(cell.substr(scanner.end()));
}

std::string withFormula(std::string_view cell, std::string_view formula, std::string_view prefix) {
    const CellXml parts = splitCell(cell, prefix);
    const std::size_t begin = static_cast<std::size_t>(parts.formula.data() - cell.data());
    return std::string(cell).replace(begin, parts.formula.size(), formula);
}

}  // namespace mergeloom::embedded
