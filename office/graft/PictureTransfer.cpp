#include "office/graft/PictureTransfer.h"

#include "base/AutomationError.h"
#include "office/graft/Refusal.h"
#include "office/opc/PartName.h"

#include <string_view>

namespace mergeloom::graft {

namespace {

constexpr const char* kRelationshipNamespace =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

pugi::xml_node descendant(pugi::xml_node node, std::string_view name) {
    return node.find_node([&](pugi::xml_node child) { return child.name() == name; });
}

bool isExtension(std::string_view name) {
    return name.starts_with("wp14:");
}

/// Removes attributes and elements of namespaces that the original may not declare.
void removeExtensions(pugi::xml_node node) {
    for (pugi::xml_attribute attribute = node.first_attribute(); attribute;) {
        const pugi::xml_attribute next = attribute.next_attribute();
        if (isExtension(attribute.name())) node.remove_attribute(attribute);
        attribute = next;
    }
    for (pugi::xml_node child = node.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        isExtension(child.name()) ? static_cast<void>(node.remove_child(child)) : removeExtensions(child);
        child = next;
    }
}

/// Copies the attributes except those that declare namespaces.
void assignAttributes(pugi::xml_node own, pugi::xml_node exported) {
    for (const pugi::xml_attribute attribute : exported.attributes()) {
        if (std::string_view(attribute.name()).starts_with("xmlns")) continue;
        own.remove_attribute(attribute.name());
        own.append_copy(attribute);
    }
}

/// Replaces the original's inline drawing by the exported one, which may float. Keeps its picture and its id.
void assignForm(pugi::xml_node own, pugi::xml_node exported) {
    const std::string id = descendant(own, "wp:docPr").attribute("id").value();
    const std::string picture = descendant(own, "a:blip").attribute("r:embed").value();
    own.set_name(exported.name());
    assignAttributes(own, exported);
    own.remove_children();
    for (const pugi::xml_node child : exported.children())
        own.append_copy(child);
    removeExtensions(own);
    if (!own.attribute("xmlns:r")) own.append_attribute("xmlns:r") = kRelationshipNamespace;
    descendant(own, "wp:docPr").attribute("id").set_value(id.c_str());
    descendant(own, "pic:cNvPr").attribute("id").set_value(id.c_str());
    descendant(own, "a:blip").attribute("r:embed").set_value(picture.c_str());
}

}  // namespace

std::string HeldFiles::read(const std::string& path) {
    const auto found = files_.find(path);
    if (found != files_.end()) return found->second;
    throw AutomationError(kFileCouldNotBeRead, "The file '" + path + "' could not be read.");
}

void HeldFiles::save(const std::string& path, const std::function<void(ByteSink&)>&) {
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + path + "' could not be saved.");
}

void PictureTransfer::insert(embedded::WordContent& content, embedded::Story& original,
                             CharacterPosition position, const embedded::Story& exported,
                             pugi::xml_node form) {
    const pugi::xml_node blip = descendant(form, "a:blip");
    opc::Package& package = edited_.package();
    const opc::Relationships& relationships = package.relationshipsOf(exported.part().partName());
    const opc::Relationship* const picture = relationships.find(blip.attribute("r:embed").value());
    const bool isPicture = form.child("a:graphic").child("a:graphicData").child("pic:pic") &&
                           picture != nullptr && picture->mode == opc::TargetMode::Internal;
    if (!isPicture || original.names().isStrict()) throw Refusal("an object was inserted");
    const std::string target = relationships.targetPart(*picture);
    const std::string name = "picture." + std::string(opc::extensionOf(target));
    files_.put(name, package.readPart(target));
    content.replaceByPicture(original, position, position, name);
    const embedded::Item* const item = original.items().itemAt(position);
    const pugi::xml_node own = descendant(item->node, "wp:inline");
    if (!own) throw Refusal("an object was inserted");
    assignForm(own, form);
}

}  // namespace mergeloom::graft
