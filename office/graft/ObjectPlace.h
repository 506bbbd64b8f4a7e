#pragma once

#include <array>
#include <pugixml.hpp>

namespace mergeloom::graft {

/// The place of an object on a sheet: the cells and offsets of its corners, and its rectangle (ECMA-376 Part
/// 1, 20.5.2.33). Lengths are in English Metric Units.
struct ObjectPlace {
    std::array<long long, 4> from{};       ///< column, offset, row, offset
    std::array<long long, 4> to{};         ///< likewise
    std::array<long long, 4> rectangle{};  ///< left, top, width, height
};

/// Reads the anchor of an object in a drawing.
ObjectPlace placeOf(pugi::xml_node anchor);

/// Reads the place of a comment's box or of a control from its shape in an exported VML drawing (ECMA-376
/// Part 4, 19.4).
ObjectPlace placeOfBox(pugi::xml_node shape);

/// Returns true if two places differ by less than a point. An object that is anchored to cells has kept its
/// place if its start is the same cell and offset and its size or its end is the same.
bool isInSamePlace(const ObjectPlace& a, const ObjectPlace& b);

/// Returns true if two places start at the same cell and offset.
bool startAtSameCell(const ObjectPlace& a, const ObjectPlace& b);

/// Returns true if two places start and end at the same cells and offsets.
bool haveSameCells(const ObjectPlace& a, const ObjectPlace& b);

}  // namespace mergeloom::graft
