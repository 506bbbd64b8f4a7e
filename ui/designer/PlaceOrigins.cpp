#include "ui/designer/PlaceOrigins.h"

#include "ui/designer/LoadedStructure.h"

#include <algorithm>
#include <span>
#include <unordered_set>
#include <utility>

namespace mergeloom {

namespace {

bool isWithin(const TreeNode* node, const TreeNode& whole) {
    while (node != nullptr && node != &whole)
        node = node->Parent();
    return node != nullptr;
}

const TreeNode& objectOf(const TreeNode& node) {
    const TreeNode* object = &node;
    while (object->Parent() != nullptr)
        object = object->Parent();
    return *object;
}

/// Returns the only one of the nodes that is part of the whole; null if there is none or more than one.
const TreeNode* onlyOneWithin(const std::vector<const TreeNode*>& nodes, const TreeNode& whole) {
    const TreeNode* only = nullptr;
    for (const TreeNode* const node : nodes) {
        if (!isWithin(node, whole)) continue;
        if (only != nullptr) return nullptr;
        only = node;
    }
    return only;
}

/// Returns the one of the nodes that a drop of the other node makes a place of. A node such as "Label and
/// Value" makes a place of its sibling for the value.
const TreeNode* madeBy(const TreeNode& drop, const std::vector<const TreeNode*>& nodes) {
    const TreeNode* const made = onlyOneWithin(nodes, drop);
    if (made != nullptr || drop.Parent() == nullptr || drop.Child() != nullptr) return made;
    return onlyOneWithin(nodes, *drop.Parent());
}

}  // namespace

void PlaceOrigins::setStructure(std::shared_ptr<LoadedStructure> structure) {
    if (structure == structure_) return;
    structure_ = std::move(structure);
    drops_.clear();
    dropped_.clear();
    object_ = onlyObjectOf(names_);
}

void PlaceOrigins::noteDrop(const TreeNode& node) {
    drops_.push_back(&node);
}

void PlaceOrigins::setPlaces(const std::vector<std::string>& names) {
    if (std::exchange(isOtherDocument_, false) && names != names_) {
        dropped_.clear();
        names_.clear();
    }
    const std::unordered_set<std::string> former(names_.begin(), names_.end());
    const std::unordered_set<std::string> present(names.begin(), names.end());
    std::erase_if(dropped_, [&](const auto& place) { return !present.contains(place.first); });
    for (const std::string& name : names) {
        if (former.contains(name)) continue;
        if (const TreeNode* const node = droppedNode(name)) dropped_[name] = node;
    }
    drops_.clear();
    names_ = names;
    object_ = onlyObjectOf(names);
}

/// Returns the node of a new place; null if several drops since the last ones could have made it.
const TreeNode* PlaceOrigins::droppedNode(const std::string& place) const {
    const std::vector<const TreeNode*> nodes = candidates(place);
    const TreeNode* only = nullptr;
    for (const TreeNode* const drop : drops_) {
        const TreeNode* const made = madeBy(*drop, nodes);
        if (made == nullptr || made == only) continue;
        if (only != nullptr) return nullptr;
        only = made;
    }
    return only;
}

std::vector<const TreeNode*> PlaceOrigins::candidates(const std::string& place) const {
    std::vector<const TreeNode*> nodes;
    if (!structure_) return nodes;
    const std::span<const int> numbers = nodesOfPlace(structure_->nodesByPlace, place);
    for (const int number : numbers)
        nodes.push_back(structure_->tree.Item(number));
    std::unordered_set<const TreeNode*> parents;
    for (const TreeNode* const node : nodes)
        parents.insert(node->Parent());
    std::erase_if(nodes, [&](const TreeNode* node) { return parents.contains(node); });
    return nodes;
}

/// Returns the object that has all places that any object has; null if none or more than one has them.
const TreeNode* PlaceOrigins::onlyObjectOf(const std::vector<std::string>& names) const {
    std::unordered_map<const TreeNode*, std::size_t> counts;
    std::size_t known = 0;
    for (const std::string& name : names) {
        std::unordered_set<const TreeNode*> objects;
        for (const TreeNode* const node : candidates(name))
            objects.insert(&objectOf(*node));
        known += objects.empty() ? 0 : 1;
        for (const TreeNode* const object : objects)
            ++counts[object];
    }
    const TreeNode* only = nullptr;
    for (const auto& [object, count] : counts) {
        if (count < known) continue;
        if (only != nullptr) return nullptr;
        only = object;
    }
    return only;
}

const TreeNode* PlaceOrigins::nodeOf(const std::string& place) const {
    if (const auto known = dropped_.find(place); known != dropped_.end()) return known->second;
    const std::vector<const TreeNode*> nodes = candidates(place);
    if (nodes.size() == 1) return nodes.front();
    return object_ == nullptr ? nullptr : onlyOneWithin(nodes, *object_);
}

}  // namespace mergeloom
