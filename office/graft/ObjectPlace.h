#pragma once

#include <array>
#include <pugixml.hpp>

namespace mergeloom::graft {

/// The place of an object on an exported sheet: the cells and the offsets in them between which it lies, and
/// the rectangle (ECMA-376 Part 1, 20.5.2.33). Lengths are in English Metric Units.
struct ObjectPlace {
    std::array<long long, 4> from{};       ///< column, offset, row, offset
    std::array<long long, 4> to{};         ///< likewise
    std::array<long long, 4> rectangle{};  ///< left, top, width, height
};

/// Reads the anchor of an object in an exported drawing.
ObjectPlace placeOf(pugi::xml_node anchor);

/// Returns true if two places differ by less than a point. An object that is tied to cells keeps its place if
/// it starts in the same place of the same cell, wherever that lies, and has the same size or end.
bool isInSamePlace(const ObjectPlace& a, const ObjectPlace& b);

}  // namespace mergeloom::graft
