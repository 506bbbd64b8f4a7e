#include "office/embedded/letters/NumberedStyles.h"

#include "office/opc/PropertyOrder.h"
#include "office/opc/XmlPart.h"

#include <memory>
#include <string_view>

namespace mergeloom::embedded {

namespace {

using opc::WordNames;
using opc::WordTag;

/// The longest chain of styles that is followed; a damaged document may have a circle.
constexpr int kMaxBases = 20;

pugi::xml_node childOf(pugi::xml_node node, std::string_view name, const WordNames& names) {
    return node.child(names.element(name).c_str());
}

/// Returns true if the other kind of first-line indent is present. A paragraph has only one of both.
bool hasOtherFirstLine(const std::map<std::string, std::string>& indents, const std::string& name) {
    const std::string_view local = std::string_view(name).substr(name.find(':') + 1);
    const std::string prefix = name.substr(0, name.size() - local.size());
    if (local.starts_with("firstLine")) return indents.contains(prefix + "hanging");
    return local.starts_with("hanging") && indents.contains(prefix + "firstLine");
}

/// Adds the missing indents.
void addIndents(std::map<std::string, std::string>& indents,
                const std::map<std::string, std::string>& added) {
    for (const auto& [name, value] : added)
        if (!hasOtherFirstLine(indents, name)) indents.try_emplace(name, value);
}

std::map<std::string, std::string> indentsOf(pugi::xml_node properties, const WordNames& names) {
    std::map<std::string, std::string> indents;
    for (const pugi::xml_attribute attribute : childOf(properties, "ind", names).attributes())
        indents[attribute.name()] = attribute.value();
    return indents;
}

void setIndents(pugi::xml_node properties, const std::map<std::string, std::string>& ofStyle,
                const WordNames& names) {
    if (ofStyle.empty()) return;
    std::map<std::string, std::string> indents = indentsOf(properties, names);
    addIndents(indents, ofStyle);
    pugi::xml_node element = opc::requireChild(properties, "ind", names);
    for (const auto& [name, value] : indents) {
        if (!element.attribute(name.c_str())) element.append_attribute(name.c_str()) = value.c_str();
    }
}

void setValue(pugi::xml_node element, const std::string& value, const WordNames& names) {
    const std::string name = names.attribute("val");
    if (!element.attribute(name.c_str())) element.append_attribute(name.c_str()) = value.c_str();
}

std::string levelOf(const StyleList& list, const ListRestarts& lists) {
    for (const std::string& style : list.styles) {
        const std::string level = lists.levelOf(list.id, style);
        if (!level.empty()) return level;
    }
    return list.level.empty() ? "0" : list.level;
}

}  // namespace

NumberedStyles::NumberedStyles(opc::Package& package) {
    const std::string name = package.relatedPart(package.mainPart(), "styles");
    if (name.empty()) return;
    const std::unique_ptr<opc::XmlPart> part =
        opc::XmlPart::parse(package.readPart(name), name, package.fileName());
    const WordNames names(part->root());
    const std::string element = names.element("style");
    for (const pugi::xml_node style : part->root().children(element.c_str()))
        read(style, names);
    for (const auto& [id, style] : styles_)
        resolve(id);
}

void NumberedStyles::read(pugi::xml_node style, const WordNames& names) {
    const std::string id = names.value(style, "styleId");
    const std::string_view isDefault = names.value(style, "default");
    const bool isOfParagraphs = std::string_view(names.value(style, "type")) == "paragraph";
    if (isOfParagraphs && (isDefault == "1" || isDefault == "true" || isDefault == "on")) default_ = id;
    const pugi::xml_node properties = names.child(style, WordTag::ParagraphProperties);
    const pugi::xml_node numbering = childOf(properties, "numPr", names);
    styles_[id] = {names.value(childOf(style, "basedOn", names), "val"),
                   names.value(childOf(numbering, "numId", names), "val"),
                   names.value(childOf(numbering, "ilvl", names), "val"), indentsOf(properties, names)};
}

void NumberedStyles::resolve(const std::string& id) {
    StyleList list;
    std::string next = id;
    for (int depth = 0; depth < kMaxBases && list.id.empty(); ++depth) {
        const auto style = styles_.find(next);
        if (style == styles_.end()) return;
        list.styles.push_back(next);
        list.id = style->second.list;
        if (list.level.empty()) list.level = style->second.level;
        addIndents(list.indents, style->second.indents);
        next = style->second.basedOn;
    }
    if (!list.id.empty()) lists_[id] = std::move(list);
}

const StyleList* NumberedStyles::styleListOf(pugi::xml_node properties, const WordNames& names) const {
    const std::string named = names.value(childOf(properties, "pStyle", names), "val");
    const auto found = lists_.find(styles_.contains(named) ? named : default_);
    return found == lists_.end() ? nullptr : &found->second;
}

std::string NumberedStyles::listOf(pugi::xml_node paragraph, const WordNames& names) const {
    const pugi::xml_node properties = names.child(paragraph, WordTag::ParagraphProperties);
    const pugi::xml_node own = childOf(childOf(properties, "numPr", names), "numId", names);
    if (own) return names.value(own, "val");
    const StyleList* const list = styleListOf(properties, names);
    return list ? list->id : std::string();
}

void NumberedStyles::copyListTo(pugi::xml_node paragraph, const WordNames& names,
                                const ListRestarts& lists) const {
    pugi::xml_node properties = names.child(paragraph, WordTag::ParagraphProperties);
    if (childOf(childOf(properties, "numPr", names), "numId", names)) return;
    const StyleList* const list = styleListOf(properties, names);
    if (!list || !lists.counts(list->id)) return;
    if (!properties) properties = paragraph.prepend_child(names.element("pPr").c_str());
    const pugi::xml_node numbering = opc::requireChild(properties, "numPr", names);
    setValue(opc::requireChild(numbering, "ilvl", names), levelOf(*list, lists), names);
    setValue(opc::requireChild(numbering, "numId", names), list->id, names);
    // The indents of a list of its own would take precedence over those of the style.
    setIndents(properties, list->indents, names);
}

}  // namespace mergeloom::embedded
