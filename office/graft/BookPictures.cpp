#include "office/graft/BookPictures.h"

#include "office/graft/Refusal.h"
#include "office/opc/PictureFile.h"
#include "office/opc/XmlPart.h"

#include <string_view>

namespace mergeloom::graft {

namespace {

constexpr std::array<std::pair<const char*, const char*>, 3> kNamespaces{
    {{"xmlns:xdr", "http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing"},
     {"xmlns:a", "http://schemas.openxmlformats.org/drawingml/2006/main"},
     {"xmlns:r", "http://schemas.openxmlformats.org/officeDocument/2006/relationships"}}};

pugi::xml_node withLocalName(pugi::xml_node node, std::string_view name) {
    return node.find_node([&](pugi::xml_node child) { return opc::localName(child) == name; });
}

std::string embeddedId(pugi::xml_node anchor) {
    for (const pugi::xml_attribute attribute : withLocalName(anchor, "blip").attributes())
        if (std::string_view(attribute.name()).ends_with(":embed")) return attribute.value();
    return {};
}

/// Replaces an anchor of the engine with the exported one. Keeps its picture and its id.
void assignAnchor(pugi::xml_node own, pugi::xml_node exported) {
    const std::string picture = embeddedId(own);
    const std::string id = withLocalName(own, "cNvPr").attribute("id").value();
    pugi::xml_node root = own.parent();
    pugi::xml_node copy = root.insert_copy_after(exported, own);
    root.remove_child(own);
    for (const auto& [name, uri] : kNamespaces)
        copy.append_attribute(name).set_value(uri);
    withLocalName(copy, "blip").attribute("r:embed").set_value(picture.c_str());
    withLocalName(copy, "cNvPr").attribute("id").set_value(id.c_str());
}

}  // namespace

void BookPictures::add(embedded::WorkbookContent& original, std::size_t sheet, const ExportedSheet& now,
                       std::size_t first) {
    const opc::Relationships& relationships = exported_.relationshipsOf(now.drawing().partName());
    Added added{original.workbook().sheets()[sheet].partName, {}};
    for (std::size_t object = first; object < now.anchors().size(); ++object) {
        const pugi::xml_node anchor = now.anchors()[object];
        const opc::Relationship* const picture = relationships.find(embeddedId(anchor));
        const bool isPicture =
            anchor.child("xdr:pic") && picture != nullptr && picture->mode == opc::TargetMode::Internal;
        const bool isStrict = original.package().conformance() == opc::Conformance::Strict;
        if (!isPicture || isStrict) throw Refusal("an object was inserted", now.name());
        std::string bytes = exported_.readPart(relationships.targetPart(*picture));
        const opc::PictureFile file = opc::PictureFile::read(bytes, relationships.targetPart(*picture));
        original.sheet(sheet).drawing().addPicture({1, 1}, std::move(bytes), file);
        added.anchors.push_back(anchor);
    }
    added_.push_back(std::move(added));
}

void BookPictures::finish(opc::Package& original) {
    for (const Added& added : added_) {
        const std::string name = original.relatedPart(added.sheetPart, "drawing");
        const auto part = opc::XmlPart::parse(original.readPart(name), name, original.fileName());
        std::vector<pugi::xml_node> own;
        for (const pugi::xml_node child : part->root().children())
            if (child.type() == pugi::node_element) own.push_back(child);
        const std::size_t first = own.size() - added.anchors.size();
        for (std::size_t object = 0; object < added.anchors.size(); ++object)
            assignAnchor(own[first + object], added.anchors[object]);
        original.writePart(name, part->toXml());
    }
}

}  // namespace mergeloom::graft
