#pragma once

#include "office/embedded/parts/DrawingPicture.h"
#include "office/embedded/sheet/PartState.h"

#include <functional>
#include <pugixml.hpp>
#include <string>
#include <vector>

/// The elements of a drawing (ECMA-376 Part 1, 20.5.2). Anywhere among them an element may stand in several
/// alternatives, for programs of different age (ECMA-376 Part 3, 7.5); the first one counts, changes go into
/// all of them.
namespace mergeloom::embedded {

enum class ShapeKind { Picture, Chart, Other };

/// The anchors that a child of the drawing's root is or holds; none for what is no shape.
std::vector<pugi::xml_node> anchorsIn(pugi::xml_node rootChild);

std::string nameOfShape(pugi::xml_node rootChild);
void setNameOfShape(pugi::xml_node rootChild, const std::string& name, PartState& state);
ShapeKind kindOfShape(pugi::xml_node rootChild);

/// Repeats the frame of a shape in its own properties, where they tell one.
void setTransforms(pugi::xml_node rootChild, const PictureRectangle& frame, PartState& state);

/// Visits the element and all those in it.
void forEachElement(pugi::xml_node element, const std::function<void(pugi::xml_node)>& visit);

}  // namespace mergeloom::embedded
