#include "office/embedded/text/ItemTree.h"

namespace mergeloom::embedded {

namespace {

std::uint32_t lengthBelow(const Item* item) {
    return item ? item->lengthBelow : 0;
}
std::uint32_t marksBelow(const Item* item) {
    return item ? item->marksBelow : 0;
}
std::int32_t openMarksBelow(const Item* item) {
    return item ? item->openMarksBelow : 0;
}

std::int32_t opensItself(const Item* item) {
    if (item->kind == ItemKind::BookmarkStart) return 1;
    return item->kind == ItemKind::BookmarkEnd ? -1 : 0;
}

void update(Item* item) {
    item->lengthBelow = lengthBelow(item->left) + item->length + lengthBelow(item->right);
    item->marksBelow = marksBelow(item->left) + (item->isMark() ? 1 : 0) + marksBelow(item->right);
    item->openMarksBelow = openMarksBelow(item->left) + opensItself(item) + openMarksBelow(item->right);
}

void updateUpward(Item* item) {
    for (; item; item = item->parent)
        update(item);
}

Item* leftmost(Item* item) {
    while (item && item->left)
        item = item->left;
    return item;
}

Item* rightmost(Item* item) {
    while (item && item->right)
        item = item->right;
    return item;
}

std::uint32_t nextRandom(std::uint32_t& state) {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state;
}

/// Returns the last mark of a subtree that has one.
Item* lastMarkBelow(Item* item) {
    while (true) {
        if (marksBelow(item->right) > 0) {
            item = item->right;
        } else if (item->isMark()) {
            return item;
        } else {
            item = item->left;
        }
    }
}

}  // namespace

void ItemTree::build(const std::vector<Item*>& items) {
    // The right spine of the treap so far; each new item takes over the part of lower priority.
    std::vector<Item*> spine;
    for (Item* item : items) {
        item->priority = nextRandom(random_);
        item->left = item->right = item->parent = nullptr;
        item->placed = true;
        Item* below = nullptr;
        while (!spine.empty() && spine.back()->priority < item->priority) {
            below = spine.back();
            update(below);
            spine.pop_back();
        }
        item->left = below;
        if (below) below->parent = item;
        if (!spine.empty()) {
            spine.back()->right = item;
            item->parent = spine.back();
        }
        spine.push_back(item);
    }
    while (!spine.empty()) {
        root_ = spine.back();
        update(root_);
        spine.pop_back();
    }
}

void ItemTree::insertBefore(Item* next, Item* item) {
    lastFound_ = nullptr;
    item->left = item->right = nullptr;
    item->placed = true;
    item->priority = nextRandom(random_);
    Item* parent = nullptr;
    if (next && !next->left) {
        parent = next;
        parent->left = item;
    } else {
        parent = rightmost(next ? next->left : root_);
        if (parent) parent->right = item;
    }
    item->parent = parent;
    if (!parent) root_ = item;
    update(item);
    while (item->parent && item->parent->priority < item->priority)
        rotateUp(item);
    updateUpward(item->parent);
}

void ItemTree::remove(Item* item) {
    lastFound_ = nullptr;
    while (item->left || item->right) {
        const bool leftHigher = !item->right || (item->left && item->left->priority > item->right->priority);
        rotateUp(leftHigher ? item->left : item->right);
    }
    Item* parent = item->parent;
    replaceChild(parent, item, nullptr);
    item->parent = nullptr;
    item->placed = false;
    updateUpward(parent);
}

void ItemTree::setLength(Item* item, CharacterCount length) {
    lastFound_ = nullptr;
    item->length = static_cast<std::uint32_t>(length.value);
    updateUpward(item);
}

Item* ItemTree::first() const {
    return leftmost(root_);
}
Item* ItemTree::last() const {
    return rightmost(root_);
}

Item* ItemTree::next(const Item* item) {
    if (item->right) return leftmost(item->right);
    while (item->parent && item->parent->right == item)
        item = item->parent;
    return item->parent;
}

Item* ItemTree::previous(const Item* item) {
    if (item->left) return rightmost(item->left);
    while (item->parent && item->parent->left == item)
        item = item->parent;
    return item->parent;
}

Item* ItemTree::previousMark(const Item* item) {
    if (marksBelow(item->left) > 0) return lastMarkBelow(item->left);
    for (; item->parent; item = item->parent) {
        Item* parent = item->parent;
        if (parent->right != item) continue;
        if (parent->isMark()) return parent;
        if (marksBelow(parent->left) > 0) return lastMarkBelow(parent->left);
    }
    return nullptr;
}

CharacterCount ItemTree::length() const {
    return {lengthBelow(root_)};
}

CharacterPosition ItemTree::positionOf(const Item* item) {
    std::int64_t position = lengthBelow(item->left);
    for (; item->parent; item = item->parent) {
        if (item->parent->right == item) position += lengthBelow(item->parent->left) + item->parent->length;
    }
    return {position};
}

Item* ItemTree::itemAt(CharacterPosition position) const {
    const std::int64_t fromLast = (position - lastPosition_).value;
    if (lastFound_ && fromLast >= 0 && fromLast < lastFound_->length) return lastFound_;
    std::int64_t rest = position.value;
    for (Item* item = root_; item;) {
        const std::int64_t before = lengthBelow(item->left);
        if (rest < before) {
            item = item->left;
        } else if (rest < before + item->length) {
            lastFound_ = item;
            lastPosition_ = position - CharacterCount{rest - before};
            return item;
        } else {
            rest -= before + item->length;
            item = item->right;
        }
    }
    return nullptr;
}

int ItemTree::openBookmarksBefore(const Item* item) {
    int open = openMarksBelow(item->left);
    for (; item->parent; item = item->parent) {
        const Item* parent = item->parent;
        if (parent->right == item) open += openMarksBelow(parent->left) + opensItself(parent);
    }
    return open;
}

void ItemTree::rotateUp(Item* item) {
    Item* parent = item->parent;
    Item* grandparent = parent->parent;
    if (parent->left == item) {
        parent->left = item->right;
        if (item->right) item->right->parent = parent;
        item->right = parent;
    } else {
        parent->right = item->left;
        if (item->left) item->left->parent = parent;
        item->left = parent;
    }
    replaceChild(grandparent, parent, item);
    parent->parent = item;
    item->parent = grandparent;
    update(parent);
    update(item);
}

void ItemTree::replaceChild(Item* parent, const Item* child, Item* replacement) {
    if (!parent) {
        root_ = replacement;
    } else if (parent->left == child) {
        parent->left = replacement;
    } else {
        parent->right = replacement;
    }
}

}  // namespace mergeloom::embedded
