#pragma once

#include "office/model/letters/PlaceSource.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <functional>
#include <span>
#include <string>

namespace mergeloom {

/// Returns which of a Word document's bookmarks are places or tables of an object, and what they take from
/// its records. The names are computed from the object's controls by the rules by which they are dropped.
/// Images are those of the structure for which the finder has a file.
letters::PlaceSources placeSources(const XmlNodeCollection& xmlNodes, const TreeNode& object,
                                   std::span<const std::string> bookmarkNames,
                                   const std::function<std::string(const std::string& image)>& findPicture);

/// Returns the paths of all controls of an object that hold a value.
std::vector<letters::ControlPath> valuePaths(const XmlNodeCollection& xmlNodes, const TreeNode& object);

}  // namespace mergeloom
