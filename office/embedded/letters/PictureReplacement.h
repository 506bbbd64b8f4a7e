#pragma once

#include "office/opc/PictureFile.h"

#include <pugixml.hpp>
#include <string>

namespace mergeloom::embedded {

/// Returns true if a drawing shows a picture that can be replaced.
bool showsPicture(pugi::xml_node drawing);

/// Returns the id of the relationship to the picture of such a drawing.
std::string pictureLinkOf(pugi::xml_node drawing);

/// Replaces the picture of a drawing by that of a relationship, rotated by the orientation in its file. Keeps
/// the displayed width (ECMA-376 Part 1, 20.4.2.7 and 20.1.7.6).
void replacePicture(pugi::xml_node drawing, const std::string& relationshipId,
                    const opc::PictureFile& picture, const std::string& name);

}  // namespace mergeloom::embedded
