#pragma once

#include "xml/TreeView.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom {

struct LoadedStructure;

/// The nodes of the tree from which the places of the document were made. A name alone is not enough if
/// several nodes become places of that name, such as the same field of a form and of its table. Then the drop
/// decides, or the only object that has all places of the document.
class PlaceOrigins {
  public:
    /// Forgets the drops from the former structure document; null for none.
    void setStructure(std::shared_ptr<LoadedStructure> structure);
    /// Notes a drop of the node, which made those places that are new among the next ones.
    void noteDrop(const TreeNode& node);
    /// Notes that the document may be another one, which the next places show.
    void noteNewDocument() { isOtherDocument_ = true; }
    /// Sets the names of the document's places.
    void setPlaces(const std::vector<std::string>& names);

    /// Returns the node from which a place was made; null if there is none or it is uncertain.
    [[nodiscard]] const TreeNode* nodeOf(const std::string& place) const;
    /// Returns all nodes that become places of the name and have no such nodes below them.
    [[nodiscard]] std::vector<const TreeNode*> candidates(const std::string& place) const;

  private:
    [[nodiscard]] const TreeNode* droppedNode(const std::string& place) const;
    [[nodiscard]] const TreeNode* onlyObjectOf(const std::vector<std::string>& names) const;

    std::shared_ptr<LoadedStructure> structure_;
    std::vector<std::string> names_;
    std::vector<const TreeNode*> drops_;  ///< since the places were set
    bool isOtherDocument_ = false;
    std::unordered_map<std::string, const TreeNode*> dropped_;  ///< the nodes of places that were dropped
    const TreeNode* object_ = nullptr;  ///< the only one that has all places of the document
};

}  // namespace mergeloom
