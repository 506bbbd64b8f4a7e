#include "office/embedded/sheet/DrawnElement.h"

#include "office/embedded/sheet/DrawingAnchor.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/opc/PackageXml.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mergeloom::embedded {

namespace {

using Visit = std::function<void(pugi::xml_node)>;

constexpr std::array<std::string_view, 6> kObjects{"pic",   "sp",    "graphicFrame",
                                                   "cxnSp", "grpSp", "contentPart"};

bool isObject(pugi::xml_node element) {
    return std::ranges::find(kObjects, opc::localName(element)) != kObjects.end();
}

/// The first child of that local name, whatever its prefix.
pugi::xml_node anyChild(pugi::xml_node parent, std::string_view name) {
    return parent.find_child([&](pugi::xml_node child) { return opc::localName(child) == name; });
}

void visitAlternatives(pugi::xml_node element, const Visit& visit) {
    if (opc::localName(element) != "AlternateContent") return visit(element);
    for (const pugi::xml_node branch : element.children()) {
        for (const pugi::xml_node child : branch.children())
            visitAlternatives(child, visit);
    }
}

std::vector<pugi::xml_node> objectsIn(pugi::xml_node rootChild) {
    std::vector<pugi::xml_node> objects;
    const auto add = [&](pugi::xml_node element) {
        if (isObject(element)) objects.push_back(element);
    };
    for (const pugi::xml_node anchor : anchorsIn(rootChild)) {
        for (const pugi::xml_node child : anchor.children())
            visitAlternatives(child, add);
    }
    return objects;
}

/// The element that names an object.
pugi::xml_node identityOf(pugi::xml_node object) {
    const pugi::xml_node properties =
        object.find_child([](pugi::xml_node child) { return opc::localName(child).starts_with("nv"); });
    return anyChild(properties, "cNvPr");
}

bool isChart(pugi::xml_node object) {
    const pugi::xml_node data = anyChild(anyChild(object, "graphic"), "graphicData");
    // ".../2006/chart" and, for kinds of charts that came later, ".../2014/chartex".
    return std::string_view(data.attribute("uri").value()).find("/chart") != std::string_view::npos;
}

pugi::xml_node transformOf(pugi::xml_node object) {
    for (const char* properties : {"spPr", "grpSpPr"}) {
        if (const pugi::xml_node transform = anyChild(anyChild(object, properties), "xfrm")) return transform;
    }
    return {};
}

}  // namespace

std::vector<pugi::xml_node> anchorsIn(pugi::xml_node rootChild) {
    std::vector<pugi::xml_node> anchors;
    visitAlternatives(rootChild, [&](pugi::xml_node element) {
        if (DrawingAnchor::isAnchor(element)) anchors.push_back(element);
    });
    return anchors;
}

std::string nameOfShape(pugi::xml_node rootChild) {
    for (const pugi::xml_node object : objectsIn(rootChild)) {
        if (const pugi::xml_node identity = identityOf(object)) return identity.attribute("name").value();
    }
    return {};
}

void setNameOfShape(pugi::xml_node rootChild, const std::string& name, PartState& state) {
    for (const pugi::xml_node object : objectsIn(rootChild)) {
        if (const pugi::xml_node identity = identityOf(object)) setAttribute(identity, "name", name, state);
    }
}

ShapeKind kindOfShape(pugi::xml_node rootChild) {
    const std::vector<pugi::xml_node> objects = objectsIn(rootChild);
    if (objects.empty()) return ShapeKind::Other;
    if (opc::localName(objects.front()) == "pic") return ShapeKind::Picture;
    return isChart(objects.front()) ? ShapeKind::Chart : ShapeKind::Other;
}

void setTransforms(pugi::xml_node rootChild, const PictureRectangle& frame, PartState& state) {
    for (const pugi::xml_node object : objectsIn(rootChild)) {
        const pugi::xml_node transform = transformOf(object);
        // The frame of what stands turned is not the one that it has unturned.
        if (!transform || transform.attribute("rot").as_int() != 0) continue;
        if (const pugi::xml_node offset = anyChild(transform, "off")) {
            setAttribute(offset, "x", std::to_string(frame.left.value), state);
            setAttribute(offset, "y", std::to_string(frame.top.value), state);
        }
        if (const pugi::xml_node extent = anyChild(transform, "ext")) {
            setAttribute(extent, "cx", std::to_string(frame.width.value), state);
            setAttribute(extent, "cy", std::to_string(frame.height.value), state);
        }
    }
}

void forEachElement(pugi::xml_node element, const Visit& visit) {
    visit(element);
    for (const pugi::xml_node child : element.children()) {
        if (child.type() == pugi::node_element) forEachElement(child, visit);
    }
}

}  // namespace mergeloom::embedded
