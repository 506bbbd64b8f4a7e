#include "office/graft/StyleNames.h"

#include "base/Text.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

namespace mergeloom::graft {

StyleNames::StyleNames(opc::Package& package) {
    const std::string partName = package.relatedPart(package.mainPart(), "styles");
    if (partName.empty()) return;
    const auto part = opc::XmlPart::parse(package.readPart(partName), partName, package.fileName());
    const opc::WordNames names(part->root());
    // pugixml keeps a pointer to the name of the children that it lists.
    const std::string element = names.element("style");
    for (const pugi::xml_node style : part->root().children(element.c_str())) {
        const std::string id = names.value(style, "styleId");
        const std::string name = names.value(style.child(names.element("name").c_str()), "val");
        add(id, name);
    }
}

void StyleNames::add(const std::string& id, const std::string& name) {
    names_.emplace(id, name);
    ids_.emplace(name, id);
    foldedIds_.emplace(foldCase(name), id);
}

std::string StyleNames::nameOf(const std::string& id) const {
    const auto found = names_.find(id);
    return found == names_.end() ? std::string() : found->second;
}

std::optional<std::string> StyleNames::idOf(const std::string& name) const {
    const auto exact = ids_.find(name);
    if (exact != ids_.end()) return exact->second;
    const auto folded = foldedIds_.find(foldCase(name));
    if (folded == foldedIds_.end()) return {};
    return folded->second;
}

}  // namespace mergeloom::graft
