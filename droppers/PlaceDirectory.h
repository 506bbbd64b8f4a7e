#pragma once

#include "office/model/letters/PlaceSource.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <functional>
#include <span>
#include <string>

namespace mergeloom {

/// The names of places: bookmarks of a document, or ranges of a workbook.
enum class PlaceScheme { Bookmarks, RangeNames };

/// Returns the sources of those bookmarks of a document, or names of a workbook, that are places or tables of
/// an object. Their names are computed from the object's controls by the droppers' rules. The finder returns
/// the files of images.
letters::PlaceSources placeSources(const XmlNodeCollection& xmlNodes, const TreeNode& object,
                                   std::span<const std::string> names,
                                   const std::function<std::string(const std::string& image)>& findPicture,
                                   PlaceScheme scheme = PlaceScheme::Bookmarks);

/// Returns the paths of all controls of an object except subforms.
std::vector<letters::ControlPath> valuePaths(const XmlNodeCollection& xmlNodes, const TreeNode& object);

}  // namespace mergeloom
