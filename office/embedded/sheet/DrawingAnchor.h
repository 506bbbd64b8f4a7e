#pragma once

#include "office/embedded/parts/DrawingPicture.h"
#include "office/embedded/sheet/PartState.h"
#include "office/embedded/sheet/SheetGeometry.h"

#include <pugixml.hpp>

namespace mergeloom::embedded {

/// What an object does when the columns and rows under it change (ECMA-376 Part 1, 20.5.3.2).
enum class AnchorHold { MovesAndStretches, KeepsSize, KeepsPlaceAndSize };

/// Where an object of a drawing lies: the element around it, which ties it to one cell, to two cells or to
/// the sheet (ECMA-376 Part 1, 20.5.2.1, 20.5.2.24, 20.5.2.33).
class DrawingAnchor {
  public:
    static bool isAnchor(pugi::xml_node element);

    explicit DrawingAnchor(pugi::xml_node element) : element_(element) {}

    [[nodiscard]] PictureRectangle frame(const SheetGeometry& geometry) const;
    /// The anchor keeps its kind.
    void setFrame(const PictureRectangle& frame, const SheetGeometry& geometry, PartState& state);

    /// What is tied to two cells may still keep its size; all else does so anyway, without any change to the
    /// anchor, and counts as MovesAndStretches here.
    [[nodiscard]] AnchorHold hold() const;

  private:
    [[nodiscard]] pugi::xml_node child(const char* localName) const;

    pugi::xml_node element_;
};

}  // namespace mergeloom::embedded
