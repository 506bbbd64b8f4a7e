#include "office/graft/FormatTransfer.h"

#include "office/graft/Refusal.h"

#include <algorithm>
#include <array>
#include <set>

namespace mergeloom::graft {

namespace {

/// The properties of a font in the order of the schema (CT_Font, ECMA-376 Part 1, A.2).
constexpr std::array<std::string_view, 15> kFontOrder{"b",       "i",      "strike", "condense",  "extend",
                                                      "outline", "shadow", "u",      "vertAlign", "sz",
                                                      "color",   "name",   "family", "charset",   "scheme"};

/// The lists of a styles part in the order of the schema (CT_Stylesheet).
constexpr std::array<std::string_view, 6> kListOrder{"numFmts", "fonts",        "fills",
                                                     "borders", "cellStyleXfs", "cellXfs"};

constexpr int kFirstOwnNumberFormat = 164;

bool areEqual(pugi::xml_node a, pugi::xml_node b) {
    return plainXml().of(a) == plainXml().of(b);
}

void set(pugi::xml_node node, const std::string& name, const std::string& value) {
    pugi::xml_attribute attribute = node.attribute(name.c_str());
    if (!attribute) attribute = node.append_attribute(name.c_str());
    attribute.set_value(value.c_str());
}

bool isElement(pugi::xml_node node) {
    return node.type() == pugi::node_element;
}

std::size_t rankOf(pugi::xml_node property) {
    const auto* const found = std::ranges::find(kFontOrder, opc::localName(property));
    return static_cast<std::size_t>(found - kFontOrder.begin());
}

}  // namespace

FormatTransfer::FormatTransfer(opc::Package& original) : original_(original) {
    const std::string name = original.relatedPart(original.mainPart(), "styles");
    if (!name.empty()) part_ = opc::XmlPart::parse(original.readPart(name), name, original.fileName());
}

int FormatTransfer::changed(int style, const ExportedFormat& former, const ExportedFormat& now) {
    if (former.number == now.number) return style;
    if (!part_ || !list("cellXfs")) throw Refusal("a format was changed, but the workbook has no styles");
    const auto [known, isNew] = known_.try_emplace({style, former.number, now.number}, 0);
    if (!isNew) return known->second;
    const pugi::xml_node base = itemAt("cellXfs", style);
    const pugi::xml_node format = base ? draftOf(base) : draft("xf");
    if (former.numberFormat != now.numberFormat) changeNumberFormat(format, now.numberFormat);
    if (!areEqual(former.font, now.font)) changeFont(format, former, now);
    if (!areEqual(former.fill, now.fill)) changeFill(format, now.fill);
    if (!areEqual(former.border, now.border)) changeBorder(format, former, now);
    if (!areEqual(former.protection, now.protection)) {
        changeAttributes(format, "protection", former.protection, now.protection);
        set(format, "applyProtection", "1");
    }
    if (!areEqual(former.alignment, now.alignment)) {
        changeAttributes(format, "alignment", former.alignment, now.alignment);
        set(format, "applyAlignment", "1");
    }
    return known->second = indexOf("cellXfs", format);
}

void FormatTransfer::store() {
    if (isChanged_) original_.writePart(part_->partName(), part_->toXml());
    isChanged_ = false;
}

std::string FormatTransfer::own(std::string_view name) const {
    const std::string_view root = part_->root().name();
    return std::string(root.substr(0, root.find(':') + 1)).append(name);
}

pugi::xml_node FormatTransfer::list(std::string_view name) const {
    return part_->root().child(own(name).c_str());
}

pugi::xml_node FormatTransfer::requireList(std::string_view name) {
    if (const pugi::xml_node found = list(name)) return found;
    pugi::xml_node before;
    for (const std::string_view earlier : kListOrder) {
        if (earlier == name) break;
        if (const pugi::xml_node found = list(earlier)) before = found;
    }
    pugi::xml_node root = part_->root();
    return before ? root.insert_child_after(own(name).c_str(), before)
                  : root.prepend_child(own(name).c_str());
}

pugi::xml_node FormatTransfer::itemAt(std::string_view listName, int index) const {
    int position = 0;
    for (const pugi::xml_node item : list(listName).children())
        if (isElement(item) && position++ == index) return item;
    return {};
}

pugi::xml_node FormatTransfer::draft(std::string_view name) const {
    return part_->detachedNodes().append_child(own(name).c_str());
}

pugi::xml_node FormatTransfer::draftOf(pugi::xml_node item) const {
    return part_->detachedNodes().append_copy(item);
}

int FormatTransfer::indexOf(std::string_view listName, pugi::xml_node item) {
    pugi::xml_node items = requireList(listName);
    const std::string wanted = plainXml().of(item);
    int index = 0;
    for (const pugi::xml_node each : items.children()) {
        if (!isElement(each)) continue;
        if (plainXml().of(each) == wanted) return index;
        ++index;
    }
    items.append_move(item);
    if (items.attribute("count")) set(items, "count", std::to_string(index + 1));
    isChanged_ = true;
    return index;
}

/// Copies the children and attributes of an element of an export, whose names have no prefix.
void FormatTransfer::copyInto(pugi::xml_node target, pugi::xml_node exported) const {
    for (const pugi::xml_attribute attribute : exported.attributes())
        set(target, attribute.name(), attribute.value());
    for (const pugi::xml_node child : exported.children())
        if (isElement(child)) copyInto(target.append_child(own(child.name()).c_str()), child);
}

void FormatTransfer::changeNumberFormat(pugi::xml_node format, const std::string& code) {
    set(format, "applyNumberFormat", "1");
    if (code.starts_with(kNumberFormatId)) return set(format, "numFmtId", code.substr(1));
    if (code == "General") return set(format, "numFmtId", "0");
    int free = kFirstOwnNumberFormat;
    for (const pugi::xml_node known : list("numFmts").children()) {
        if (known.attribute("formatCode").value() == code)
            return set(format, "numFmtId", known.attribute("numFmtId").value());
        free = std::max(free, known.attribute("numFmtId").as_int() + 1);
    }
    const pugi::xml_node added = draft("numFmt");
    set(added, "numFmtId", std::to_string(free));
    set(added, "formatCode", code);
    indexOf("numFmts", added);
    set(format, "numFmtId", std::to_string(free));
}

void FormatTransfer::changeFont(pugi::xml_node format, const ExportedFormat& former,
                                const ExportedFormat& now) {
    const pugi::xml_node known = itemAt("fonts", format.attribute("fontId").as_int());
    const pugi::xml_node font = known ? draftOf(known) : draft("font");
    std::set<std::string> names;
    for (const pugi::xml_node list : {former.font, now.font})
        for (const pugi::xml_node property : list.children())
            names.insert(property.name());
    for (const std::string& name : names)
        if (!areEqual(former.font.child(name.c_str()), now.font.child(name.c_str())))
            setFont(font, now.font.child(name.c_str()), name);
    set(format, "fontId", std::to_string(indexOf("fonts", font)));
    set(format, "applyFont", "1");
}

/// Replaces a property of a font; an empty one removes it.
void FormatTransfer::setFont(pugi::xml_node font, pugi::xml_node property, const std::string& name) {
    const std::string ownName = own(name);
    // A theme font would override the name.
    if (name == "name") font.remove_child(own("scheme").c_str());
    font.remove_child(ownName.c_str());
    if (!property) return;
    pugi::xml_node next = font.first_child();
    const pugi::xml_node added = font.append_child(ownName.c_str());
    while (next != added && rankOf(next) < rankOf(added))
        next = next.next_sibling();
    if (next != added) font.insert_move_before(added, next);
    copyInto(added, property);
}

void FormatTransfer::changeFill(pugi::xml_node format, pugi::xml_node fill) {
    // Excel reserves the first two fills (ECMA-376 Part 1, 18.8.20).
    for (const char* pattern : {"none", "gray125"}) {
        if (itemAt("fills", 1)) break;
        const pugi::xml_node reserved = draft("fill");
        pugi::xml_node(reserved)
            .append_child(own("patternFill").c_str())
            .append_attribute("patternType")
            .set_value(pattern);
        indexOf("fills", reserved);
    }
    const pugi::xml_node added = draft("fill");
    copyInto(added, fill);
    set(format, "fillId", std::to_string(indexOf("fills", added)));
    set(format, "applyFill", "1");
}

void FormatTransfer::changeBorder(pugi::xml_node format, const ExportedFormat& former,
                                  const ExportedFormat& now) {
    const pugi::xml_node known = itemAt("borders", format.attribute("borderId").as_int());
    pugi::xml_node border = draft("border");
    for (const pugi::xml_attribute attribute : (known ? known : now.border).attributes())
        set(border, attribute.name(), attribute.value());
    for (const char* name : {"diagonalUp", "diagonalDown"}) {
        const std::string_view value = now.border.attribute(name).value();
        if (value == former.border.attribute(name).value()) continue;
        if (value.empty()) border.remove_attribute(name);
        if (!value.empty()) set(border, name, std::string(value));
    }
    for (const char* side :
         {"start", "left", "end", "right", "top", "bottom", "diagonal", "vertical", "horizontal"}) {
        const pugi::xml_node exported = now.border.child(side);
        const pugi::xml_node ownSide = known.child(own(side).c_str());
        const bool isSame = areEqual(former.border.child(side), exported);
        if (isSame && ownSide) border.append_copy(ownSide);
        if (!isSame && exported) copyInto(border.append_child(own(side).c_str()), exported);
    }
    set(format, "borderId", std::to_string(indexOf("borders", border)));
    set(format, "applyBorder", "1");
}

void FormatTransfer::changeAttributes(pugi::xml_node format, std::string_view child, pugi::xml_node former,
                                      pugi::xml_node now) {
    pugi::xml_node target = format.child(own(child).c_str());
    if (!target) {
        target = child == "alignment" ? format.prepend_child(own(child).c_str())
                                      : format.append_child(own(child).c_str());
        if (const pugi::xml_node extensions = format.child(own("extLst").c_str());
            extensions && child != "alignment")
            format.insert_move_before(target, extensions);
    }
    for (const pugi::xml_attribute attribute : now.attributes())
        if (std::string_view(former.attribute(attribute.name()).value()) != attribute.value())
            set(target, attribute.name(), attribute.value());
    for (const pugi::xml_attribute attribute : former.attributes())
        if (!now.attribute(attribute.name())) target.remove_attribute(attribute.name());
}

}  // namespace mergeloom::graft
