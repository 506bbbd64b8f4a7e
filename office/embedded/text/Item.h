#pragma once

#include "base/Units.h"

#include <cstdint>
#include <pugixml.hpp>

namespace mergeloom::embedded {

struct BookmarkRecord;
struct ItemBlock;

/// The kinds of items of a story. Nothing depends on the order of the groups, but the lengths differ.
enum class ItemKind : std::uint8_t {
    Text,            ///< the text of w:t or w:delText, one unit per UTF-16 code unit
    FieldCode,       ///< the text of w:instrText, not part of what a range reads as its text
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

}  // namespace mergeloom::embedded
