#include "office/embedded/sheet/AnchoredPicture.h"

#include "office/embedded/sheet/TreeEdit.h"

#include <string_view>

namespace mergeloom::embedded {

namespace {

pugi::xml_node append(pugi::xml_node parent, const char* localName) {
    return parent.append_child(nameLike(parent, localName).c_str());
}

void appendFrom(pugi::xml_node anchor, const excel::CellPosition& cell) {
    pugi::xml_node from = append(anchor, "from");
    append(from, "col").text().set(cell.column - 1);
    append(from, "colOff").text().set(0);
    append(from, "row").text().set(cell.row - 1);
    append(from, "rowOff").text().set(0);
}

void appendPicture(pugi::xml_node anchor, const AnchoredPicture& picture,
                   const DrawingNamespaces& namespaces) {
    pugi::xml_node pic = append(anchor, "pic");
    const bool isDeclared = std::string_view(anchor.parent().attribute("xmlns:a").value()) == namespaces.main;
    if (!isDeclared) pic.append_attribute("xmlns:a") = namespaces.main;
    pugi::xml_node identity = append(pic, "nvPicPr");
    appendIdentity(identity, nameLike(pic, "cNvPr"), picture.drawingId, picture.name);
    pugi::xml_node locks = append(identity, "cNvPicPr").append_child("a:picLocks");
    locks.append_attribute("noChangeAspect") = "1";
    appendPictureFill(pic, nameLike(pic, ""), picture.relationshipId, namespaces);
    appendPictureShape(pic, nameLike(pic, ""), picture.frame);
}

}  // namespace

pugi::xml_node appendAnchoredPicture(pugi::xml_node root, const AnchoredPicture& picture,
                                     opc::Conformance conformance) {
    pugi::xml_node anchor = append(root, "oneCellAnchor");
    appendFrom(anchor, picture.cell);
    appendExtent(anchor, nameLike(anchor, "ext").c_str(), picture.frame.width, picture.frame.height);
    appendPicture(anchor, picture, drawingNamespaces(conformance));
    append(anchor, "clientData");
    return anchor;
}

}  // namespace mergeloom::embedded
