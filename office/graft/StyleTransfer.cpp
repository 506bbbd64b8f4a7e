#include "office/graft/StyleTransfer.h"

#include "office/graft/Refusal.h"

#include <string_view>

namespace mergeloom::graft {

namespace {

std::unique_ptr<opc::XmlPart> stylesOf(opc::Package& package) {
    const std::string name = package.relatedPart(package.mainPart(), "styles");
    if (name.empty()) return {};
    return opc::XmlPart::parse(package.readPart(name), name, package.fileName());
}

}  // namespace

StyleTransfer::StyleTransfer(opc::Package& original, opc::Package& exported)
    : original_(original),
      names_(original),
      exportedNames_(exported),
      own_(stylesOf(original)),
      exported_(stylesOf(exported)) {}

std::optional<std::string> StyleTransfer::idOf(const std::string& exportedId) const {
    return names_.idOf(exportedNames_.nameOf(exportedId));
}

pugi::xml_node StyleTransfer::exportedStyle(const std::string& id) const {
    if (!exported_) return {};
    return exported_->root().find_child(
        [&](pugi::xml_node style) { return std::string_view(style.attribute("w:styleId").value()) == id; });
}

std::string StyleTransfer::require(const std::string& exportedId) {
    if (const std::optional<std::string> known = idOf(exportedId)) return *known;
    const std::string name = exportedNames_.nameOf(exportedId);
    const pugi::xml_node source = exportedStyle(exportedId);
    // Other prefixes and the strict vocabulary would have to be translated.
    const bool canHave = own_ && std::string_view(own_->root().name()) == "w:styles" &&
                         std::string_view(own_->root().attribute("xmlns:w").value()) ==
                             exported_->root().attribute("xmlns:w").value();
    if (!source || !canHave ||
        source.find_node([](pugi::xml_node node) { return std::string_view(node.name()) == "w:numPr"; }))
        throw Refusal("the style “" + name + "” is not in the file");
    const std::string id = freeId(exportedId);
    names_.add(id, name);
    pugi::xml_node root = own_->root();
    const pugi::xml_node style = root.append_copy(source);
    style.attribute("w:styleId").set_value(id.c_str());
    style.attribute("w:default").set_value("0");
    translate(style);
    own_->setDirty(true);
    return id;
}

/// The office keeps the ids of styles, so the result is proved only with the one of the export.
std::string StyleTransfer::freeId(const std::string& wanted) const {
    std::string id = wanted;
    for (int number = 1; !names_.nameOf(id).empty(); ++number)
        id = wanted + std::to_string(number);
    return id;
}

/// Makes a copied style refer to the original's styles.
void StyleTransfer::translate(pugi::xml_node style) {
    if (const pugi::xml_node base = style.child("w:basedOn"))
        base.attribute("w:val").set_value(require(base.attribute("w:val").value()).c_str());
    for (const char* name : {"w:next", "w:link"}) {
        const pugi::xml_node other = style.child(name);
        if (!other) continue;
        const std::optional<std::string> own = idOf(other.attribute("w:val").value());
        if (own) {
            other.attribute("w:val").set_value(own->c_str());
        } else {
            style.remove_child(other);
        }
    }
}

void StyleTransfer::store() {
    if (own_ && own_->isDirty()) original_.writePart(own_->partName(), own_->toXml());
}

}  // namespace mergeloom::graft
