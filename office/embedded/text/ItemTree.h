#pragma once

#include "base/Units.h"
#include "office/embedded/text/Item.h"

#include <cstdint>
#include <vector>

namespace mergeloom::embedded {

/// The items of a story in order. Where an item stands and which item stands where are answered in
/// logarithmic time, so that no edit costs in proportion to the story. A treap with parent links: the
/// tree's shape hangs on random priorities alone, not on the order of the edits. Does not own the items.
class ItemTree {
  public:
    /// Takes the items in their order; the tree must be empty.
    void build(const std::vector<Item*>& items);

    /// Puts an item before another one, or at the end when next is none.
    void insertBefore(Item* next, Item* item);
    void remove(Item* item);
    void setLength(Item* item, CharacterCount length);

    [[nodiscard]] Item* first() const;
    [[nodiscard]] Item* last() const;
    static Item* next(const Item* item);
    static Item* previous(const Item* item);
    /// The nearest bookmark mark before an item, or none.
    static Item* previousMark(const Item* item);

    [[nodiscard]] CharacterCount length() const;
    /// The place before the item.
    static CharacterPosition positionOf(const Item* item);
    /// The item that holds the character behind the position; none at the end.
    [[nodiscard]] Item* itemAt(CharacterPosition position) const;
    /// How many bookmarks start before the item and end at it or behind it.
    static int openBookmarksBefore(const Item* item);

  private:
    void rotateUp(Item* item);
    void replaceChild(Item* parent, const Item* child, Item* replacement);

    Item* root_ = nullptr;
    // What itemAt found last, since an edit asks for the same place several times; any change forgets it.
    mutable Item* lastFound_ = nullptr;
    mutable CharacterPosition lastPosition_;
    std::uint32_t random_ = 0x9E3779B9;
};

}  // namespace mergeloom::embedded
