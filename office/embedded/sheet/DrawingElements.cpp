#include "office/embedded/sheet/DrawingElements.h"

#include "office/embedded/sheet/TreeEdit.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mergeloom::embedded {

namespace {

/// The largest coordinate of a drawing in EMU (ECMA-376 Part 1, 20.1.10.16).
constexpr std::int64_t kMaxCoordinate = 27273042316900;

Emu boundedLength(std::int64_t value) {
    return {std::clamp<std::int64_t>(value, -kMaxCoordinate, kMaxCoordinate)};
}

Points points(Emu emu) {
    return {static_cast<double>(emu.value) / kEmuPerPoint};
}

std::int64_t numberIn(pugi::xml_node marker, const char* localName) {
    return childNamed(marker, localName).text().as_llong();
}

/// Columns and rows are counted from 0 in a drawing.
int indexIn(pugi::xml_node marker, const char* localName, int last) {
    return static_cast<int>(std::clamp<std::int64_t>(numberIn(marker, localName), 0, last - 1)) + 1;
}

SheetPlace placeOf(pugi::xml_node marker) {
    return {{indexIn(marker, "row", excel::kLastRow), indexIn(marker, "col", excel::kLastColumn)},
            boundedLength(numberIn(marker, "colOff")),
            boundedLength(numberIn(marker, "rowOff"))};
}

void setNumber(pugi::xml_node marker, const char* localName, std::int64_t number, PartState& state) {
    const pugi::xml_node element = childNamed(marker, localName);
    const bool isSame = !element || numberIn(marker, localName) == number;
    if (!isSame) setText(element, std::to_string(number), state);
}

void setPlace(pugi::xml_node marker, const SheetPlace& place, PartState& state) {
    setNumber(marker, "col", place.cell.column - 1, state);
    setNumber(marker, "colOff", place.right.value, state);
    setNumber(marker, "row", place.cell.row - 1, state);
    setNumber(marker, "rowOff", place.down.value, state);
}

void setPair(pugi::xml_node element, const char* first, Emu a, const char* second, Emu b, PartState& state) {
    if (!element) return;
    setAttribute(element, first, std::to_string(a.value), state);
    setAttribute(element, second, std::to_string(b.value), state);
}

Emu lengthIn(pugi::xml_node element, const char* attribute) {
    return boundedLength(element.attribute(attribute).as_llong());
}

using Visit = std::function<void(pugi::xml_node)>;

constexpr std::array<std::string_view, 6> kObjects{"pic",   "sp",    "graphicFrame",
                                                   "cxnSp", "grpSp", "contentPart"};

bool isObject(pugi::xml_node element) {
    return std::ranges::find(kObjects, opc::localName(element)) != kObjects.end();
}

/// Returns the first child of that local name, regardless of its prefix.
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

/// Returns the element that names an object.
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

pugi::xml_node append(pugi::xml_node parent, const char* localName) {
    return parent.append_child(qualifiedName(parent, localName).c_str());
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
    appendIdentity(identity, qualifiedName(pic, "cNvPr"), picture.drawingId, picture.name);
    pugi::xml_node locks = append(identity, "cNvPicPr").append_child("a:picLocks");
    locks.append_attribute("noChangeAspect") = "1";
    appendPictureFill(pic, qualifiedName(pic, ""), picture.relationshipId, namespaces);
    appendPictureShape(pic, qualifiedName(pic, ""), picture.frame);
}

}  // namespace

bool DrawingAnchor::isAnchor(pugi::xml_node element) {
    const std::string_view name = opc::localName(element);
    return name == "oneCellAnchor" || name == "twoCellAnchor" || name == "absoluteAnchor";
}

PictureRectangle DrawingAnchor::frame(const SheetGeometry& geometry) const {
    const pugi::xml_node position = child("pos");
    const pugi::xml_node extent = child("ext");
    if (position) {
        return {lengthIn(position, "x"), lengthIn(position, "y"), lengthIn(extent, "cx"),
                lengthIn(extent, "cy")};
    }
    const SheetPlace from = placeOf(child("from"));
    const Emu left = geometry.left(from);
    const Emu top = geometry.top(from);
    if (extent) return {left, top, lengthIn(extent, "cx"), lengthIn(extent, "cy")};
    const SheetPlace to = placeOf(child("to"));
    const std::int64_t width = geometry.left(to).value - left.value;
    const std::int64_t height = geometry.top(to).value - top.value;
    return {left, top, {std::max<std::int64_t>(width, 0)}, {std::max<std::int64_t>(height, 0)}};
}

void DrawingAnchor::setFrame(const PictureRectangle& frame, const SheetGeometry& geometry, PartState& state) {
    setPair(child("pos"), "x", frame.left, "y", frame.top, state);
    setPair(child("ext"), "cx", frame.width, "cy", frame.height, state);
    setPlace(child("from"), geometry.placeAt(points(frame.left), points(frame.top)), state);
    const Emu right{frame.left.value + frame.width.value};
    const Emu bottom{frame.top.value + frame.height.value};
    setPlace(child("to"), geometry.placeAt(points(right), points(bottom)), state);
}

AnchorMode DrawingAnchor::mode() const {
    if (!child("to")) return AnchorMode::MovesAndStretches;
    const std::string_view mode = element_.attribute("editAs").value();
    if (mode == "oneCell") return AnchorMode::KeepsSize;
    return mode == "absolute" ? AnchorMode::KeepsPlaceAndSize : AnchorMode::MovesAndStretches;
}

pugi::xml_node DrawingAnchor::child(const char* name) const {
    return childNamed(element_, name);
}

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
        // The frame of a rotated object differs from the one in its properties, which is not rotated.
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

pugi::xml_node appendAnchoredPicture(pugi::xml_node root, const AnchoredPicture& picture,
                                     opc::Conformance conformance) {
    pugi::xml_node anchor = append(root, "oneCellAnchor");
    appendFrom(anchor, picture.cell);
    appendExtent(anchor, qualifiedName(anchor, "ext").c_str(), picture.frame.width, picture.frame.height);
    appendPicture(anchor, picture, drawingNamespaces(conformance));
    append(anchor, "clientData");
    return anchor;
}

}  // namespace mergeloom::embedded
