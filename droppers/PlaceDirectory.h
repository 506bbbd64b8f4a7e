#pragma once

#include "office/model/letters/PlaceSource.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <functional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

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

/// The names that the droppers make of an object's controls and tables, without those of further places.
struct PossiblePlaceNames {
    std::vector<std::string> places{};
    std::vector<std::string> tables{};
    std::vector<letters::ControlPath> listed{};  ///< the subforms that the droppers make tables of
};
PossiblePlaceNames possiblePlaceNames(const XmlNodeCollection& xmlNodes, const TreeNode& object,
                                      PlaceScheme scheme);

/// The tree nodes, by TreeNode::Index, that become places, by the folded names of the places: objects and
/// subforms that become tables, controls, and the kinds of value below these.
using NodesByPlace = std::unordered_map<std::string, std::vector<int>>;

/// Adds the nodes of an object.
void addNodesByPlace(const XmlNodeCollection& xmlNodes, const TreeNode& object, PlaceScheme scheme,
                     NodesByPlace& nodes);
/// Returns the nodes that become places of the name, also with the counter of a further place.
std::span<const int> nodesOfPlace(const NodesByPlace& nodes, const std::string& name);

/// Returns the paths of all controls of an object except subforms.
std::vector<letters::ControlPath> valuePaths(const XmlNodeCollection& xmlNodes, const TreeNode& object);

}  // namespace mergeloom
