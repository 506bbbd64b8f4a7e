#pragma once

#include "office/embedded/parts/DrawingPicture.h"
#include "office/embedded/sheet/SheetGeometry.h"
#include "office/embedded/sheet/UndoLog.h"

#include <functional>
#include <pugixml.hpp>
#include <string>
#include <vector>

/// The elements of a drawing (ECMA-376 Part 1, 20.5.2). Any element may be given in several alternatives for
/// programs of different age (ECMA-376 Part 3, 7.5): reading uses the first alternative, a change goes into
/// all of them.
namespace mergeloom::embedded {

/// Determines what an object does when the columns and rows under it change (ECMA-376 Part 1, 20.5.3.2).
enum class AnchorMode { MovesAndStretches, KeepsSize, KeepsPlaceAndSize };

/// The anchor of an object in a drawing: the element around it, which ties it to one cell, to two cells or to
/// the sheet (ECMA-376 Part 1, 20.5.2.1, 20.5.2.24, 20.5.2.33).
class DrawingAnchor {
  public:
    static bool isAnchor(pugi::xml_node element);

    explicit DrawingAnchor(pugi::xml_node element) : element_(element) {}

    [[nodiscard]] PictureRectangle frame(const SheetGeometry& geometry) const;
    /// Moves and sizes the object; the anchor keeps its kind.
    void setFrame(const PictureRectangle& frame, const SheetGeometry& geometry, PartState& state);

    /// Returns how the object follows its cells. Only an object that is tied to two cells needs a change of
    /// its anchor to keep its size; all others are MovesAndStretches here.
    [[nodiscard]] AnchorMode mode() const;

  private:
    [[nodiscard]] pugi::xml_node child(const char* localName) const;

    pugi::xml_node element_;
};

enum class ShapeKind { Picture, Chart, Other };

/// Returns the anchors that a child of the drawing's root is or contains; none if it is not a shape.
std::vector<pugi::xml_node> anchorsIn(pugi::xml_node rootChild);

std::string nameOfShape(pugi::xml_node rootChild);
void setNameOfShape(pugi::xml_node rootChild, const std::string& name, PartState& state);
ShapeKind kindOfShape(pugi::xml_node rootChild);

/// Writes the frame of a shape into its own properties too, if they contain one.
void setTransforms(pugi::xml_node rootChild, const PictureRectangle& frame, PartState& state);

/// Visits the element and all its descendants.
void forEachElement(pugi::xml_node element, const std::function<void(pugi::xml_node)>& visit);

/// The properties of a picture that is added to a drawing.
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
