#include "office/embedded/text/ItemTree.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

ItemTotals below(const ItemBlock* block) {
    return block ? block->below : ItemTotals{};
}

void update(ItemBlock& block) {
    block.below = block.own;
    block.below += below(block.left);
    block.below += below(block.right);
}

void addUpward(ItemBlock* block, const ItemTotals& added) {
    for (; block; block = block->parent)
        block->below += added;
}

void subtractUpward(ItemBlock* block, const ItemTotals& removed) {
    for (; block; block = block->parent)
        block->below -= removed;
}

ItemBlock* leftmost(ItemBlock* block) {
    while (block && block->left)
        block = block->left;
    return block;
}

ItemBlock* rightmost(ItemBlock* block) {
    while (block && block->right)
        block = block->right;
    return block;
}

const ItemBlock* nextBlock(const ItemBlock* block) {
    if (block->right) return leftmost(block->right);
    while (block->parent && block->parent->right == block)
        block = block->parent;
    return block->parent;
}

const ItemBlock* previousBlock(const ItemBlock* block) {
    if (block->left) return rightmost(block->left);
    while (block->parent && block->parent->left == block)
        block = block->parent;
    return block->parent;
}

/// Returns the sums over the items of all blocks before a block.
ItemTotals totalsBefore(const ItemBlock* block) {
    ItemTotals totals = below(block->left);
    for (; block->parent; block = block->parent) {
        if (block->parent->right != block) continue;
        totals += block->parent->own;
        totals += below(block->parent->left);
    }
    return totals;
}

/// Returns the last mark of a part of the tree that has one.
Item* lastMarkBelow(const ItemBlock* block) {
    while (true) {
        if (below(block->right).marks > 0) {
            block = block->right;
        } else if (block->own.marks > 0) {
            return block->lastMarkBefore(block->count);
        } else {
            block = block->left;
        }
    }
}

std::uint32_t nextRandom(std::uint32_t& state) {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state;
}

}  // namespace

void ItemTree::build(const std::vector<Item*>& items) {
    for (auto item = items.begin(); item != items.end();) {
        ItemBlock& block = makeBlock();
        while (item != items.end() && !block.isFull())
            block.insert(block.count, *item++);
        insertBlockAfter(rightmost(root_), block);
    }
}

void ItemTree::insertBefore(Item* next, Item* item) {
    noteInsertion(next, item);
    if (!root_) return build({item});
    if (ItemBlock* full = next ? next->block : rightmost(root_); full->isFull()) {
        split(*full, next ? next->place : full->count);
    }
    ItemBlock* block = next ? next->block : rightmost(root_);
    block->insert(next ? next->place : block->count, item);
    addUpward(block, totalsOf(*item));
}

void ItemTree::noteInsertion(const Item* next, const Item* item) {
    if (!item->takesPlace()) return;
    if (next == lastFound_) {
        lastPosition_ = lastPosition_ + CharacterCount{item->length};
    } else {
        lastFound_ = nullptr;
    }
}

void ItemTree::remove(Item* item) {
    if (item->takesPlace()) lastFound_ = nullptr;
    ItemBlock* block = item->block;
    subtractUpward(block, totalsOf(*item));
    block->remove(item->place);
    if (block->count == 0) removeBlock(*block);
}

void ItemTree::setLength(Item* item, CharacterCount length) {
    lastFound_ = nullptr;
    ItemBlock* block = item->block;
    subtractUpward(block, totalsOf(*item));
    block->own -= totalsOf(*item);
    item->length = static_cast<std::uint32_t>(length.value);
    block->own += totalsOf(*item);
    addUpward(block, totalsOf(*item));
}

Item* ItemTree::first() const {
    return root_ ? leftmost(root_)->first() : nullptr;
}
Item* ItemTree::last() const {
    return root_ ? rightmost(root_)->last() : nullptr;
}

Item* ItemTree::next(const Item* item) {
    const ItemBlock* block = item->block;
    if (item->place + 1 < block->count) return block->items[item->place + 1U];
    block = nextBlock(block);
    return block ? block->first() : nullptr;
}

Item* ItemTree::previous(const Item* item) {
    const ItemBlock* block = item->block;
    if (item->place > 0) return block->items[item->place - 1U];
    block = previousBlock(block);
    return block ? block->last() : nullptr;
}

Item* ItemTree::nextInText(const Item* item) {
    Item* found = next(item);
    while (found && !found->takesPlace())
        found = next(found);
    return found;
}

Item* ItemTree::previousInText(const Item* item) {
    Item* found = previous(item);
    while (found && !found->takesPlace())
        found = previous(found);
    return found;
}

Item* ItemTree::previousMark(const Item* item) {
    const ItemBlock* block = item->block;
    if (Item* mark = block->lastMarkBefore(item->place)) return mark;
    if (below(block->left).marks > 0) return lastMarkBelow(block->left);
    for (; block->parent; block = block->parent) {
        const ItemBlock* parent = block->parent;
        if (parent->right != block) continue;
        if (parent->own.marks > 0) return parent->lastMarkBefore(parent->count);
        if (below(parent->left).marks > 0) return lastMarkBelow(parent->left);
    }
    return nullptr;
}

CharacterCount ItemTree::length() const {
    return {below(root_).length};
}

CharacterPosition ItemTree::positionOf(const Item* item) const {
    if (item == lastFound_) return lastPosition_;
    if (lastFound_ && lastFound_->block == item->block) {
        return lastPosition_ + item->block->lengthBetween(lastFound_->place, item->place);
    }
    return {std::int64_t{totalsBefore(item->block).length} + item->block->lengthBefore(item->place)};
}

Item* ItemTree::itemAt(CharacterPosition position) const {
    if (Item* near = nearLastFound(position)) return near;
    std::int64_t rest = position.value;
    for (const ItemBlock* block = root_; block;) {
        const std::int64_t before = below(block->left).length;
        if (rest < before) {
            block = block->left;
        } else if (rest < before + block->own.length) {
            const auto [item, offset] = block->itemAt(static_cast<std::uint32_t>(rest - before));
            lastFound_ = item;
            lastPosition_ = position - CharacterCount{offset};
            return item;
        } else {
            rest -= before + block->own.length;
            block = block->right;
        }
    }
    return nullptr;
}

Item* ItemTree::nearLastFound(CharacterPosition position) const {
    constexpr int kNearest = 4;
    Item* item = lastFound_;
    CharacterPosition start = lastPosition_;
    for (int steps = 0; item && steps < kNearest; ++steps) {
        if (position < start) {
            item = previous(item);
            if (item) start = start - CharacterCount{item->length};
        } else if (position >= start + CharacterCount{item->length}) {
            start = start + CharacterCount{item->length};
            item = next(item);
        } else {
            lastFound_ = item;
            lastPosition_ = start;
            return item;
        }
    }
    return nullptr;
}

int ItemTree::openBookmarksBefore(const Item* item) {
    return totalsBefore(item->block).openMarks + item->block->openMarksBefore(item->place);
}

ItemBlock& ItemTree::makeBlock() {
    if (emptyBlocks_.empty()) return blocks_.emplace_back();
    ItemBlock& block = *emptyBlocks_.back();
    emptyBlocks_.pop_back();
    return block;
}

void ItemTree::split(ItemBlock& block, std::uint8_t insertion) {
    // The items after the place of an edit are split off, so that further insertions at that place fill its
    // blocks.
    const std::uint8_t half = ItemBlock::kMaxItems / 2;
    ItemBlock& tail = makeBlock();
    block.moveTail(std::max(insertion, half), tail);
    subtractUpward(&block, tail.own);
    insertBlockAfter(&block, tail);
}

void ItemTree::insertBlockAfter(ItemBlock* previous, ItemBlock& block) {
    ItemBlock* parent = nullptr;
    if (previous && !previous->right) {
        parent = previous;
        parent->right = &block;
    } else {
        parent = leftmost(previous ? previous->right : root_);
        if (parent) parent->left = &block;
    }
    block.parent = parent;
    if (!parent) root_ = &block;
    update(block);
    addUpward(parent, block.own);
    block.priority = nextRandom(random_);
    while (block.parent && block.parent->priority < block.priority)
        rotateUp(block);
}

void ItemTree::removeBlock(ItemBlock& block) {
    while (block.left || block.right) {
        const bool leftHigher = !block.right || (block.left && block.left->priority > block.right->priority);
        rotateUp(leftHigher ? *block.left : *block.right);
    }
    replaceChild(block.parent, &block, nullptr);
    block.parent = nullptr;
    emptyBlocks_.push_back(&block);
}

void ItemTree::rotateUp(ItemBlock& block) {
    ItemBlock& parent = *block.parent;
    ItemBlock* grandparent = parent.parent;
    if (parent.left == &block) {
        parent.left = block.right;
        if (block.right) block.right->parent = &parent;
        block.right = &parent;
    } else {
        parent.right = block.left;
        if (block.left) block.left->parent = &parent;
        block.left = &parent;
    }
    replaceChild(grandparent, &parent, &block);
    parent.parent = &block;
    block.parent = grandparent;
    update(parent);
    update(block);
}

void ItemTree::replaceChild(ItemBlock* parent, const ItemBlock* child, ItemBlock* replacement) {
    if (!parent) {
        root_ = replacement;
    } else if (parent->left == child) {
        parent->left = replacement;
    } else {
        parent->right = replacement;
    }
}

}  // namespace mergeloom::embedded
