#pragma once

#include "base/Units.h"
#include "office/embedded/text/ItemBlock.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace mergeloom::embedded {

/// The items of a story in order. The position of an item and the item at a position are found in logarithmic
/// time, so that no edit costs in proportion to the story. A treap with parent links over blocks of items:
/// the shape of the tree depends on random priorities alone, not on the order of the edits. Does not own the
/// items.
class ItemTree {
  public:
    ItemTree() = default;
    ItemTree(const ItemTree&) = delete;
    ItemTree& operator=(const ItemTree&) = delete;

    /// Adds the items in their order; the tree must be empty.
    void build(const std::vector<Item*>& items);

    /// Inserts an item before another one, or at the end when `next` is none.
    void insertBefore(Item* next, Item* item);
    void remove(Item* item);
    void setLength(Item* item, CharacterCount length);

    [[nodiscard]] Item* first() const;
    [[nodiscard]] Item* last() const;
    static Item* next(const Item* item);
    static Item* previous(const Item* item);
    /// Return the nearest item after or before an item that takes place in the text, or none.
    static Item* nextInText(const Item* item);
    static Item* previousInText(const Item* item);
    /// Returns the nearest bookmark mark before an item, or none.
    static Item* previousMark(const Item* item);

    [[nodiscard]] CharacterCount length() const;
    /// Returns the position before the item.
    [[nodiscard]] CharacterPosition positionOf(const Item* item) const;
    /// Returns the item with the character after the position; none at the end.
    [[nodiscard]] Item* itemAt(CharacterPosition position) const;
    /// Returns how many bookmarks start before the item and end at it or after it.
    static int openBookmarksBefore(const Item* item);

  private:
    ItemBlock& makeBlock();
    /// Moves the tail of a full block, into which an item is about to be inserted, into a new one after it.
    void split(ItemBlock& block, std::uint8_t insertion);
    void insertBlockAfter(ItemBlock* previous, ItemBlock& block);
    void removeBlock(ItemBlock& block);
    void rotateUp(ItemBlock& block);
    void replaceChild(ItemBlock* parent, const ItemBlock* child, ItemBlock* replacement);
    /// Returns the item at a position if it is one of the nearest to the last result of itemAt.
    [[nodiscard]] Item* nearLastFound(CharacterPosition position) const;
    /// Updates the last result of itemAt before an item is inserted.
    void noteInsertion(const Item* next, const Item* item);

    std::deque<ItemBlock> blocks_;
    std::vector<ItemBlock*> emptyBlocks_;
    ItemBlock* root_ = nullptr;
    // The last result of itemAt, since an edit searches for the same position several times. It stays valid
    // after changes that move no character before it.
    mutable Item* lastFound_ = nullptr;
    mutable CharacterPosition lastPosition_;
    std::uint32_t random_ = 0x9E3779B9;
};

}  // namespace mergeloom::embedded
