#include "office/embedded/sheet/DrawingAnchor.h"

#include "office/embedded/sheet/TreeEdit.h"
#include "office/opc/PackageXml.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

namespace {

/// Places and sizes in a drawing fit into this many EMU (ECMA-376 Part 1, 20.1.10.16).
constexpr std::int64_t kFarthest = 27273042316900;

Emu boundedLength(std::int64_t value) {
    return {std::clamp<std::int64_t>(value, -kFarthest, kFarthest)};
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

AnchorHold DrawingAnchor::hold() const {
    if (!child("to")) return AnchorHold::MovesAndStretches;
    const std::string_view hold = element_.attribute("editAs").value();
    if (hold == "oneCell") return AnchorHold::KeepsSize;
    return hold == "absolute" ? AnchorHold::KeepsPlaceAndSize : AnchorHold::MovesAndStretches;
}

pugi::xml_node DrawingAnchor::child(const char* name) const {
    return childNamed(element_, name);
}

}  // namespace mergeloom::embedded
