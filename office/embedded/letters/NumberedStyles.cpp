#include "office/embedded/letters/NumberedStyles.h"

#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <map>
#include <memory>
#include <pugixml.hpp>

namespace mergeloom::embedded {

namespace {

/// The longest chain of styles that is followed; a damaged document may have a circle.
constexpr int kMaxBases = 20;

struct Style {
    bool isNumbered = false;
    std::string basedOn;
};

Style styleOf(pugi::xml_node style, const opc::WordNames& names) {
    const pugi::xml_node properties = names.child(style, opc::WordTag::ParagraphProperties);
    const pugi::xml_node base = style.child(names.element("basedOn").c_str());
    return {static_cast<bool>(properties.child(names.element("numPr").c_str())), names.value(base, "val")};
}

bool isNumbered(const std::map<std::string, Style>& styles, const std::string& id, int depth = 0) {
    const auto style = styles.find(id);
    if (style == styles.end() || depth > kMaxBases) return false;
    return style->second.isNumbered || isNumbered(styles, style->second.basedOn, depth + 1);
}

}  // namespace

std::set<std::string> numberedStyles(opc::Package& package) {
    const std::string name = package.relatedPart(package.mainPart(), "styles");
    if (name.empty()) return {};
    const std::unique_ptr<opc::XmlPart> part =
        opc::XmlPart::parse(package.readPart(name), name, package.fileName());
    const opc::WordNames names(part->root());
    std::map<std::string, Style> styles;
    const std::string element = names.element("style");
    for (const pugi::xml_node style : part->root().children(element.c_str()))
        styles[names.value(style, "styleId")] = styleOf(style, names);
    std::set<std::string> numbered;
    for (const auto& [id, style] : styles) {
        if (isNumbered(styles, id)) numbered.insert(id);
    }
    return numbered;
}

}  // namespace mergeloom::embedded
