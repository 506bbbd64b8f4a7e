#pragma once

#include "office/opc/PictureFile.h"

#include <pugixml.hpp>
#include <string>

namespace mergeloom::embedded {

/// Returns whether a drawing shows a picture that can be replaced by another one.
bool showsPicture(pugi::xml_node drawing);

/// Returns the id of the relationship to the picture of such a drawing.
std::string pictureLinkOf(pugi::xml_node drawing);

/// Makes a drawing show another picture, by a relationship of its part, turned as its file wants to be shown.
/// The width of what is shown stays (ECMA-376 Part 1, 20.4.2.7 and 20.1.7.6).
void replacePicture(pugi::xml_node drawing, const std::string& relationshipId,
                    const opc::PictureFile& picture, const std::string& name);

}  // namespace mergeloom::embedded
