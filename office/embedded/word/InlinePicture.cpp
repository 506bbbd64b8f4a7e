#include "office/embedded/word/InlinePicture.h"

#include "office/embedded/parts/DrawingPicture.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <pugixml.hpp>

namespace mergeloom::embedded {

namespace {

void appendPicture(pugi::xml_node data, const InlinePicture& picture, const DrawingNamespaces& namespaces) {
    const std::string prefix = "pic:";
    pugi::xml_node pic = data.append_child("pic:pic");
    pic.append_attribute("xmlns:pic") = namespaces.picture;
    pugi::xml_node identity = pic.append_child("pic:nvPicPr");
    appendIdentity(identity, "pic:cNvPr", picture.drawingId, picture.name);
    identity.append_child("pic:cNvPicPr");
    appendPictureFill(pic, prefix, picture.relationshipId, namespaces);
    appendPictureShape(pic, prefix, {{}, {}, picture.width, picture.height});
}

}  // namespace

void fitInto(Emu textArea, InlinePicture& picture) {
    if (picture.width <= textArea) return;
    const double scale = static_cast<double>(textArea.value) / static_cast<double>(picture.width.value);
    const auto height = static_cast<std::int64_t>(static_cast<double>(picture.height.value) * scale);
    picture.height = {std::max<std::int64_t>(1, height)};
    picture.width = textArea;
}

std::string drawingXml(const InlinePicture& picture, const opc::WordNames& names) {
    const DrawingNamespaces& namespaces =
        drawingNamespaces(names.isStrict() ? opc::Conformance::Strict : opc::Conformance::Transitional);
    pugi::xml_document document;
    pugi::xml_node drawing = document.append_child(names.element("drawing").c_str());
    pugi::xml_node inlined = drawing.append_child("wp:inline");
    inlined.append_attribute("xmlns:wp") = namespaces.wordDrawing;
    for (const char* side : {"distT", "distB", "distL", "distR"})
        inlined.append_attribute(side) = "0";
    appendExtent(inlined, "wp:extent", picture.width, picture.height);
    appendIdentity(inlined, "wp:docPr", picture.drawingId, picture.name);
    pugi::xml_node graphic = inlined.append_child("a:graphic");
    graphic.append_attribute("xmlns:a") = namespaces.main;
    pugi::xml_node data = graphic.append_child("a:graphicData");
    data.append_attribute("uri") = namespaces.picture;
    appendPicture(data, picture, namespaces);
    std::string xml;
    opc::StringWriter writer(xml);
    drawing.print(writer, "", pugi::format_raw);
    return xml;
}

std::string pictureRunXml(const InlinePicture& picture, const opc::WordNames& names) {
    const std::string run = names.element("r");
    return "<" + run + ">" + drawingXml(picture, names) + "</" + run + ">";
}

}  // namespace mergeloom::embedded
