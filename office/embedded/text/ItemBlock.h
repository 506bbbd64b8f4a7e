#pragma once

#include "office/embedded/text/Item.h"

#include <array>
#include <cstdint>

namespace mergeloom::embedded {

/// Sums over items.
struct ItemTotals {
    std::uint32_t length = 0;
    std::int32_t openMarks = 0;  ///< bookmark starts less bookmark ends
    std::uint32_t marks = 0;     ///< bookmark starts and ends

    ItemTotals& operator+=(const ItemTotals& other);
    ItemTotals& operator-=(const ItemTotals& other);
};

ItemTotals totalsOf(const Item& item);

/// Neighbouring items of a story that are together in memory, and a node of the tree of such blocks
/// (ItemTree).
struct ItemBlock {
    static constexpr std::uint8_t kMaxItems = 32;

    ItemBlock* left = nullptr;
    ItemBlock* right = nullptr;
    ItemBlock* parent = nullptr;
    std::uint32_t priority = 0;
    ItemTotals own;    ///< of its items
    ItemTotals below;  ///< of its items and those of all blocks below it in the tree
    std::uint8_t count = 0;
    std::array<Item*, kMaxItems> items{};

    [[nodiscard]] bool isFull() const { return count == kMaxItems; }
    [[nodiscard]] Item* first() const { return items.front(); }
    [[nodiscard]] Item* last() const { return items[count - 1U]; }

    void insert(std::uint8_t place, Item* item);
    void remove(std::uint8_t place);
    /// Moves the items from a place on into an empty block.
    void moveTail(std::uint8_t place, ItemBlock& to);
    struct Found {
        Item* item;
        std::uint32_t offset;  ///< of the character in the item
    };
    /// Returns the item with a character, which is counted from the block's start and must be in the block.
    [[nodiscard]] Found itemAt(std::uint32_t character) const;
    [[nodiscard]] std::uint32_t lengthBefore(std::uint8_t place) const;
    [[nodiscard]] std::int32_t openMarksBefore(std::uint8_t place) const;
    /// Returns the last mark before a place, or none.
    [[nodiscard]] Item* lastMarkBefore(std::uint8_t place) const;
};

}  // namespace mergeloom::embedded
