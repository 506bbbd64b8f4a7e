#include "office/graft/ObjectPlace.h"

#include <cstddef>
#include <cstdlib>
#include <span>
#include <string_view>

namespace mergeloom::graft {

namespace {

constexpr long long kTolerance = 12700;  // a point

std::array<long long, 4> cornerOf(pugi::xml_node corner) {
    const auto number = [&](const char* name) { return corner.child(name).text().as_llong(); };
    return {number("xdr:col"), number("xdr:colOff"), number("xdr:row"), number("xdr:rowOff")};
}

pugi::xml_node firstNamed(pugi::xml_node node, std::string_view name) {
    return node.find_node([&](pugi::xml_node child) { return child.name() == name; });
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
    return {cornerOf(anchor.child("xdr:from")),
            cornerOf(anchor.child("xdr:to")),
            {offset.attribute("x").as_llong(), offset.attribute("y").as_llong(),
             extent.attribute("cx").as_llong(), extent.attribute("cy").as_llong()}};
}

bool isInSamePlace(const ObjectPlace& a, const ObjectPlace& b) {
    const bool startsAlike = areNear(a.from, b.from) || areNearLengths(a.rectangle, b.rectangle, 0);
    const bool endsAlike = areNear(a.to, b.to) || areNearLengths(a.rectangle, b.rectangle, 2);
    return startsAlike && endsAlike;
}

}  // namespace mergeloom::graft
