#include "office/embedded/word/InlinePicture.h"

#include <algorithm>
#include <pugixml.hpp>

namespace mergeloom::embedded {

namespace {

/// The namespaces of DrawingML, which each drawing declares for itself (ECMA-376 Part 1, 20; Part 4, 9).
struct DrawingNamespaces {
    const char* wordDrawing;
    const char* main;
    const char* picture;
    const char* relationships;
};

constexpr DrawingNamespaces kTransitional{
    "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing",
    "http://schemas.openxmlformats.org/drawingml/2006/main",
    "http://schemas.openxmlformats.org/drawingml/2006/picture",
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships"};

constexpr DrawingNamespaces kStrict{"http://purl.oclc.org/ooxml/drawingml/wordprocessingDrawing",
                                    "http://purl.oclc.org/ooxml/drawingml/main",
                                    "http://purl.oclc.org/ooxml/drawingml/picture",
                                    "http://purl.oclc.org/ooxml/officeDocument/relationships"};

std::string text(std::int64_t number) {
    return std::to_string(number);
}

void appendExtent(pugi::xml_node parent, const char* name, const InlinePicture& picture) {
    pugi::xml_node extent = parent.append_child(name);
    extent.append_attribute("cx") = text(picture.width.value).c_str();
    extent.append_attribute("cy") = text(picture.height.value).c_str();
}

void appendIdentity(pugi::xml_node parent, const char* name, const InlinePicture& picture) {
    pugi::xml_node properties = parent.append_child(name);
    properties.append_attribute("id") = text(picture.drawingId).c_str();
    properties.append_attribute("name") = picture.name.c_str();
}

void appendShape(pugi::xml_node pic, const InlinePicture& picture) {
    pugi::xml_node properties = pic.append_child("pic:spPr");
    pugi::xml_node transform = properties.append_child("a:xfrm");
    pugi::xml_node offset = transform.append_child("a:off");
    offset.append_attribute("x") = "0";
    offset.append_attribute("y") = "0";
    appendExtent(transform, "a:ext", picture);
    pugi::xml_node geometry = properties.append_child("a:prstGeom");
    geometry.append_attribute("prst") = "rect";
    geometry.append_child("a:avLst");
}

void appendPicture(pugi::xml_node data, const InlinePicture& picture, const DrawingNamespaces& namespaces) {
    pugi::xml_node pic = data.append_child("pic:pic");
    pic.append_attribute("xmlns:pic") = namespaces.picture;
    pugi::xml_node identity = pic.append_child("pic:nvPicPr");
    appendIdentity(identity, "pic:cNvPr", picture);
    identity.append_child("pic:cNvPicPr");
    pugi::xml_node fill = pic.append_child("pic:blipFill");
    pugi::xml_node blip = fill.append_child("a:blip");
    blip.append_attribute("xmlns:r") = namespaces.relationships;
    blip.append_attribute("r:embed") = picture.relationshipId.c_str();
    fill.append_child("a:stretch").append_child("a:fillRect");
    appendShape(pic, picture);
}

class StringWriter : public pugi::xml_writer {
  public:
    void write(const void* data, std::size_t size) override {
        result.append(static_cast<const char*>(data), size);
    }
    std::string result;
};

}  // namespace

void fitInto(Emu textArea, InlinePicture& picture) {
    if (picture.width <= textArea) return;
    const double scale = static_cast<double>(textArea.value) / static_cast<double>(picture.width.value);
    const auto height = static_cast<std::int64_t>(static_cast<double>(picture.height.value) * scale);
    picture.height = {std::max<std::int64_t>(1, height)};
    picture.width = textArea;
}

std::string pictureRunXml(const InlinePicture& picture, const WordNames& names) {
    const DrawingNamespaces& namespaces = names.isStrict() ? kStrict : kTransitional;
    pugi::xml_document document;
    pugi::xml_node run = document.append_child(names.element("r").c_str());
    pugi::xml_node inlined = run.append_child(names.element("drawing").c_str()).append_child("wp:inline");
    inlined.append_attribute("xmlns:wp") = namespaces.wordDrawing;
    for (const char* side : {"distT", "distB", "distL", "distR"})
        inlined.append_attribute(side) = "0";
    appendExtent(inlined, "wp:extent", picture);
    appendIdentity(inlined, "wp:docPr", picture);
    pugi::xml_node graphic = inlined.append_child("a:graphic");
    graphic.append_attribute("xmlns:a") = namespaces.main;
    pugi::xml_node data = graphic.append_child("a:graphicData");
    data.append_attribute("uri") = namespaces.picture;
    appendPicture(data, picture, namespaces);
    StringWriter writer;
    run.print(writer, "", pugi::format_raw);
    return writer.result;
}

}  // namespace mergeloom::embedded
