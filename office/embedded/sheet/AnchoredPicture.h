#pragma once

#include "office/embedded/parts/DrawingPicture.h"
#include "office/embedded/sheet/SheetGeometry.h"

#include <pugixml.hpp>
#include <string>

namespace mergeloom::embedded {

/// What the drawing of a picture on a sheet says.
struct AnchoredPicture {
    std::string relationshipId;
    std::string name;
    std::int64_t drawingId = 0;
    excel::CellPosition cell;
    PictureRectangle frame;
};

/// Appends a picture that is anchored to the upper left corner of its cell and keeps its proportions to the
/// root of a drawing (ECMA-376 Part 1, 20.5.2.24, 20.5.2.25).
pugi::xml_node appendAnchoredPicture(pugi::xml_node root, const AnchoredPicture& picture,
                                     opc::Conformance conformance);

}  // namespace mergeloom::embedded
