#pragma once

#include "base/Units.h"

#include <array>
#include <cstdint>
#include <pugixml.hpp>

namespace mergeloom::embedded {

struct BookmarkRecord;
struct ItemBlock;

/// The kinds of items of a story. Nothing depends on the order of the groups, but the lengths differ.
enum class ItemKind : std::uint8_t {
    Text,            ///< the text of w:t or w:delText, one unit per UTF-16 code unit
    FieldCode,       ///< the text of w:instrText, not part of a range's text
    Character,       ///< a tab, break, hyphen, symbol, note reference or another single character
    InlineObject,    ///< a picture or object in the text
    FieldBegin,      ///< w:fldChar begin; for w:fldSimple, the begin, the code and the separator together
    FieldSeparator,  ///< w:fldChar separate
    FieldEnd,        ///< w:fldChar end, or the end of w:fldSimple
    ParagraphMark,   ///< the end of w:p; in the last paragraph of a cell, the end-of-cell mark
    RowMark,         ///< the end of w:tr
    Anchor,          ///< a floating shape; takes no place in the text
    BookmarkStart,   ///< takes no place in the text
    BookmarkEnd,     ///< takes no place in the text
};

/// One piece of a story, with the element that it represents. Items of a story form an ordered row
/// (ItemTree), whose fields are here too so that an item costs one allocation.
struct Item {
    ItemBlock* block =
        nullptr;               ///< of the row, in which the item is at `place`; none once an edit removed it
    std::uint32_t length = 0;  ///< in UTF-16 code units; 0 for marks and anchors
    std::uint8_t place = 0;
    ItemKind kind = ItemKind::Text;
    pugi::xml_node node;
    BookmarkRecord* bookmark = nullptr;  ///< of a bookmark's mark

    [[nodiscard]] bool isPlaced() const { return block != nullptr; }
    [[nodiscard]] bool takesPlace() const { return length > 0; }
    [[nodiscard]] bool isMark() const {
        return kind == ItemKind::BookmarkStart || kind == ItemKind::BookmarkEnd;
    }
};

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
    /// Returns the count of characters from the item at one place to that at another; negative backwards.
    [[nodiscard]] CharacterCount lengthBetween(std::uint8_t from, std::uint8_t to) const;
    [[nodiscard]] std::int32_t openMarksBefore(std::uint8_t place) const;
    /// Returns the last mark before a place, or none.
    [[nodiscard]] Item* lastMarkBefore(std::uint8_t place) const;
};

}  // namespace mergeloom::embedded
