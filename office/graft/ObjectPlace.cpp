#include "office/graft/ObjectPlace.h"

#include "office/opc/XmlPart.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>

namespace mergeloom::graft {

namespace {

constexpr long long kPoint = 12700;
constexpr long long kPixel = 9525;
constexpr long long kTolerance = kPoint;

pugi::xml_node childWithLocalName(pugi::xml_node node, std::string_view name) {
    return node.find_child([&](pugi::xml_node child) { return opc::localName(child) == name; });
}

std::array<long long, 4> cornerOf(pugi::xml_node corner) {
    const auto number = [&](const char* name) { return childWithLocalName(corner, name).text().as_llong(); };
    return {number("col"), number("colOff"), number("row"), number("rowOff")};
}

pugi::xml_node firstNamed(pugi::xml_node node, std::string_view name) {
    return node.find_node([&](pugi::xml_node child) { return child.name() == name; });
}

/// Returns the length of a style's property, such as "margin-left:1.5pt".
long long lengthIn(const std::string& style, const std::string& property) {
    const std::size_t at = (";" + style).find(";" + property + ":");
    if (at == std::string::npos) return 0;
    const double points = std::strtod(style.c_str() + at + property.size() + 1, nullptr);
    return std::llround(points * static_cast<double>(kPoint));
}

/// Reads the cells and offsets in pixels of "2, 15, 0, 10, 4, 15, 4, 4".
void readCells(const char* text, ObjectPlace& place) {
    for (std::array<long long, 4>* corner : {&place.from, &place.to}) {
        for (std::size_t index = 0; index < corner->size(); ++index) {
            char* end = nullptr;
            (*corner)[index] = std::strtoll(text, &end, 10) * (index % 2 == 1 ? kPixel : 1);
            text = *end == ',' ? end + 1 : end;
        }
    }
}

bool isNear(long long a, long long b) {
    return std::llabs(a - b) < kTolerance;
}

bool areNear(const std::array<long long, 4>& a, const std::array<long long, 4>& b) {
    return a[0] == b[0] && a[2] == b[2] && isNear(a[1], b[1]) && isNear(a[3], b[3]);
}

bool areNearLengths(const std::array<long long, 4>& a, const std::array<long long, 4>& b, std::size_t first) {
    return isNear(a[first], b[first]) && isNear(a[first + 1], b[first + 1]);
}

}  // namespace

ObjectPlace placeOf(pugi::xml_node anchor) {
    const pugi::xml_node offset = firstNamed(anchor, "a:off");
    const pugi::xml_node extent = firstNamed(anchor, "a:ext");
    return {cornerOf(childWithLocalName(anchor, "from")),
            cornerOf(childWithLocalName(anchor, "to")),
            {offset.attribute("x").as_llong(), offset.attribute("y").as_llong(),
             extent.attribute("cx").as_llong(), extent.attribute("cy").as_llong()}};
}

ObjectPlace placeOfBox(pugi::xml_node shape) {
    const std::string style = shape.attribute("style").value();
    ObjectPlace place{{},
                      {},
                      {lengthIn(style, "margin-left"), lengthIn(style, "margin-top"),
                       lengthIn(style, "width"), lengthIn(style, "height")}};
    readCells(firstNamed(shape, "x:Anchor").text().get(), place);
    return place;
}

bool isInSamePlace(const ObjectPlace& a, const ObjectPlace& b) {
    const bool startsAlike = areNear(a.from, b.from) || areNearLengths(a.rectangle, b.rectangle, 0);
    const bool endsAlike = areNear(a.to, b.to) || areNearLengths(a.rectangle, b.rectangle, 2);
    return startsAlike && endsAlike;
}

bool startAtSameCell(const ObjectPlace& a, const ObjectPlace& b) {
    return areNear(a.from, b.from);
}

bool haveSameCells(const ObjectPlace& a, const ObjectPlace& b) {
    return areNear(a.from, b.from) && areNear(a.to, b.to);
}

}  // namespace mergeloom::graft
