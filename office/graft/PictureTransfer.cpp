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

/// Removes attributes of namespaces that the original may not declare.
void removeExtensions(pugi::xml_node node) {
    for (pugi::xml_attribute attribute = node.first_attribute(); attribute;) {
        const pugi::xml_attribute next = attribute.next_attribute();
        if (std::string_view(attribute.name()).starts_with("wp14:")) node.remove_attribute(attribute);
        attribute = next;
    }
    for (const pugi::xml_node child : node.children())
        removeExtensions(child);
}

/// Replaces the properties of the original's drawing by those of the exported one. Keeps its picture and its
/// id.
void assignForm(pugi::xml_node own, pugi::xml_node exported) {
    const std::string id = descendant(own, "wp:docPr").attribute("id").value();
    const std::string picture = descendant(own, "a:blip").attribute("r:embed").value();
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
                             pugi::xml_node run) {
    const pugi::xml_node drawing = run.child("w:drawing").child("wp:inline");
    const pugi::xml_node blip = descendant(drawing, "a:blip");
    opc::Package& package = edited_.package();
    const opc::Relationships& relationships = package.relationshipsOf(exported.part().partName());
    const opc::Relationship* const picture = relationships.find(blip.attribute("r:embed").value());
    const bool isInPackage =
        descendant(drawing, "pic:cNvPr") && picture != nullptr && picture->mode == opc::TargetMode::Internal;
    if (!isInPackage || original.names().isStrict()) throw Refusal("an object was inserted");
    const std::string target = relationships.targetPart(*picture);
    const std::string name = "picture." + std::string(opc::extensionOf(target));
    files_.put(name, package.readPart(target));
    content.replaceByPicture(original, position, position, name);
    const embedded::Item* const item = original.items().itemAt(position);
    const pugi::xml_node own = descendant(item->node, "wp:inline");
    if (!own) throw Refusal("an object was inserted");
    assignForm(own, drawing);
}

}  // namespace mergeloom::graft
