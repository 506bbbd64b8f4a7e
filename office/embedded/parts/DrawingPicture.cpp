#include "office/embedded/parts/DrawingPicture.h"

namespace mergeloom::embedded {

namespace {

constexpr DrawingNamespaces kTransitional{
    "http://schemas.openxmlformats.org/drawingml/2006/main",
    "http://schemas.openxmlformats.org/drawingml/2006/picture",
    "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing",
    "http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing",
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships"};

constexpr DrawingNamespaces kStrict{"http://purl.oclc.org/ooxml/drawingml/main",
                                    "http://purl.oclc.org/ooxml/drawingml/picture",
                                    "http://purl.oclc.org/ooxml/drawingml/wordprocessingDrawing",
                                    "http://purl.oclc.org/ooxml/drawingml/spreadsheetDrawing",
                                    "http://purl.oclc.org/ooxml/officeDocument/relationships"};

std::string text(std::int64_t number) {
    return std::to_string(number);
}

}  // namespace

const DrawingNamespaces& drawingNamespaces(opc::Conformance conformance) {
    return conformance == opc::Conformance::Strict ? kStrict : kTransitional;
}

void appendPictureFill(pugi::xml_node picture, const std::string& prefix, const std::string& relationshipId,
                       const DrawingNamespaces& namespaces) {
    pugi::xml_node fill = picture.append_child((prefix + "blipFill").c_str());
    pugi::xml_node blip = fill.append_child("a:blip");
    blip.append_attribute("xmlns:r") = namespaces.relationships;
    blip.append_attribute("r:embed") = relationshipId.c_str();
    fill.append_child("a:stretch").append_child("a:fillRect");
}

void appendPictureShape(pugi::xml_node picture, const std::string& prefix,
                        const PictureRectangle& rectangle) {
    pugi::xml_node properties = picture.append_child((prefix + "spPr").c_str());
    pugi::xml_node transform = properties.append_child("a:xfrm");
    pugi::xml_node offset = transform.append_child("a:off");
    offset.append_attribute("x") = text(rectangle.left.value).c_str();
    offset.append_attribute("y") = text(rectangle.top.value).c_str();
    appendExtent(transform, "a:ext", rectangle.width, rectangle.height);
    pugi::xml_node geometry = properties.append_child("a:prstGeom");
    geometry.append_attribute("prst") = "rect";
    geometry.append_child("a:avLst");
}

void appendExtent(pugi::xml_node parent, const char* name, Emu width, Emu height) {
    pugi::xml_node extent = parent.append_child(name);
    extent.append_attribute("cx") = text(width.value).c_str();
    extent.append_attribute("cy") = text(height.value).c_str();
}

void appendIdentity(pugi::xml_node parent, const std::string& name, std::int64_t id,
                    const std::string& objectName) {
    pugi::xml_node properties = parent.append_child(name.c_str());
    properties.append_attribute("id") = text(id).c_str();
    properties.append_attribute("name") = objectName.c_str();
}

}  // namespace mergeloom::embedded
